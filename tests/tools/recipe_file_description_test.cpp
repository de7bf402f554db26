// Every kind of error in a description, under a name, with the whole of what the user reads.
#include "program.h"

namespace {

const std::string GOOD = R"({
  "groups": [
    {
      "index": 0,
      "names": "Oven",
      "notifyAddress": {"device": "PLC", "regType": "M", "part4": "10"},
      "items": [
        {
          "names": "Heat",
          "address": {"device": "PLC", "part1": 1, "regType": "D", "part4": "100"},
          "dataType": 2, "totalDigits": 4, "decimalDigits": 1, "min": 0, "max": 300
        },
        {
          "names": "Code",
          "address": "PLC,1,0,D,101,0",
          "dataType": 7, "totalDigits": 3
        }
      ],
      "recipes": [
        {"names": "A", "values": [21.5, "abc"]},
        {"names": "B", "values": [300, "007"]}
      ]
    }
  ]
})";

/// The good description with one text replaced, and the complaint (behind the program's name).
struct Fault
{
    const char* name;
    std::string from;
    std::string to;
    std::string complaint;
};

const char G[] = "group 0 \"Oven\"";
const std::string ITEM = std::string(G) + ", item 0 \"Heat\": ";
const std::string CODE = std::string(G) + ", item 1 \"Code\": ";
const std::string RECIPE = std::string(G) + ", recipe 0 \"A\": ";

const std::vector<Fault> FAULTS = {
    {"UnknownKeyAtTheTop", "\"groups\"", "\"group\"",
     "group: the key is \"group\", expected \"groups\", did you mean \"groups\"?\n"
     "groups: groups is missing, expected a list of groups."},
    {"UnknownKeyOfAGroup", "\"recipes\": [", "\"ricipes\": 1, \"recipes\": [",
     "groups[0].ricipes: group 0: the key is \"ricipes\", expected one of \"index\", \"names\", "
     "\"notifyAddress\", \"notify\", \"items\" or \"recipes\", did you mean \"recipes\"?"},
    {"UnknownKeyOfAnItem", "\"dataType\": 2", "\"dataTyp\": 2",
     "groups[0].items[0].dataTyp: " + ITEM
         + "the key is \"dataTyp\", expected one of \"names\", \"address\", \"dataType\", \"totalDigits\", "
           "\"decimalDigits\", \"min\" or \"max\", did you mean \"dataType\"?"},
    {"UnknownKeyOfAnAddress", "\"part1\": 1", "\"parts\": 1",
     "groups[0].items[0].address.parts: " + ITEM
         + "the key is \"parts\", expected one of \"device\", \"part1\", \"part2\", \"regType\", \"part4\" or "
           "\"part5\", did you mean \"part1\"?"},
    {"UnknownKeyOfARecipe", "{\"names\": \"A\"", "{\"colour\": 1, \"names\": \"A\"",
     "groups[0].recipes[0].colour: " + RECIPE + "the key is \"colour\", expected one of \"names\" or \"values\"."},
    {"KeyASecondTime", "\"dataType\": 2", "\"dataType\": 2, \"dataType\": 3",
     "groups[0].items[0].dataType: the key is \"dataType\" a second time, expected each key once."},
    {"GroupIsNoObject", "\"groups\": [", "\"groups\": [5,",
     "groups[0]: group 0: this is 5, expected an object in braces.\n"
     "groups[1].index: group 0 \"Oven\": index is 0, expected an index that no other group has."},
    {"IndexOfWrongType", "\"index\": 0", "\"index\": \"0\"",
     "groups[0].index: group 0: index is \"0\", expected a whole number from 0 to 2147483647."},
    {"IndexBelowZero", "\"index\": 0", "\"index\": -1",
     "groups[0].index: group 0: index is -1, expected a whole number from 0 to 2147483647."},
    {"NamesOfWrongType", "\"names\": \"Oven\"", "\"names\": 5",
     "groups[0].names: group 0: names is 5, expected a text, or a list of 1 to 8 texts, one per language."},
    {"NineLanguages", "\"names\": \"Heat\"", R"("names": ["Heat","2","3","4","5","6","7","8","9"])",
     "groups[0].items[0].names: group 0 \"Oven\", item 0: names is a list of 9, expected a list of 1 to 8 texts."},
    {"NameInAListOfWrongType", "\"names\": \"Heat\"", R"("names": ["Heat", 2])",
     "groups[0].items[0].names[1]: group 0 \"Oven\", item 0: names[1] is 2, expected a text in double quotes."},
    {"AddressMissing", "\"address\": \"PLC,1,0,D,101,0\",", "",
     "groups[0].items[1].address: " + CODE + "address is missing, expected an object with device, regType and part4."},
    {"AddressTextOfFiveFields", "PLC,1,0,D,101,0", "PLC,1,0,D,101",
     "groups[0].items[1].address: " + CODE
         + "address is \"PLC,1,0,D,101\", expected six fields \"device,number,number,register type,text,number\" "
           "without quotes."},
    {"CommaInTheDevice", "\"device\": \"PLC\", \"part1\"", "\"device\": \"PLC, left\", \"part1\"",
     "groups[0].items[0].address.device: " + ITEM
         + "device is \"PLC, left\", expected a text without commas, single quotes and zero characters."},
    {"QuoteInPart4", "\"part4\": \"100\"", "\"part4\": \"1'0\"",
     "groups[0].items[0].address.part4: " + ITEM
         + "part4 is \"1'0\", expected a text without commas, single quotes and zero characters."},
    {"QuoteInTheNotifyAddress", "\"regType\": \"M\"", "\"regType\": \"M'\"",
     "groups[0].notifyAddress.regType: group 0 \"Oven\": regType is \"M'\", expected a text without commas, single "
     "quotes and zero characters."},
    {"RegTypeOver32Bytes", "\"regType\": \"D\"", "\"regType\": \"ddddddddddddddddddddddddddddddddd\"",
     "groups[0].items[0].address.regType: " + ITEM
         + "regType is \"ddddddddddddddddddddddddddddddddd\", expected at most 32 bytes."},
    {"AddressPartNoWholeNumber", "\"part1\": 1", "\"part1\": 1.5",
     "groups[0].items[0].address.part1: " + ITEM
         + "part1 is 1.5, expected a whole number from -2147483648 to 2147483647."},
    {"AddressTooLongForItsStatement", "\"part4\": \"100\"", "\"part4\": \"" + std::string(900, '1') + "\"",
     "groups[0].items[0].address: " + ITEM
         + "address is 1045 bytes with the statement that writes it, expected at most 1023."},
    {"DataTypeOfWrongName", "\"dataType\": 2", "\"dataType\": \"float\"",
     "groups[0].items[0].dataType: " + ITEM
         + "dataType is \"float\", expected a whole number from 0 to 255, or "
           "\"text\".\n"
           "groups[0].items[0].decimalDigits: "
         + ITEM
         + "decimalDigits is 1, expected 0 for a text (a sheet shows it as a number otherwise).\n"
           "groups[0].items[0].max: "
         + ITEM
         + "max is 300, expected at most 8, the characters that fit into totalDigits words.\n"
           "groups[0].recipes[0].values[0]: "
         + RECIPE
         + "values[0] is 21.5, expected a text in double quotes for item 0 \"Heat\".\n"
           "groups[0].recipes[1].values[0]: group 0 \"Oven\", recipe 1 \"B\": values[0] is 300, expected a "
           "text in double quotes for item 0 \"Heat\"."},
    {"MoreDecimalsThanDigits", "\"totalDigits\": 4, \"decimalDigits\": 1", "\"totalDigits\": 4, \"decimalDigits\": 5",
     "groups[0].items[0].decimalDigits: " + ITEM
         + "decimalDigits is 5, expected at most totalDigits (4).\n"
           "groups[0].recipes[0].values[0]: "
         + RECIPE
         + "values[0] is 21.5, expected at most 4 digits for item 0 \"Heat\".\n"
           "groups[0].recipes[1].values[0]: group 0 \"Oven\", recipe 1 \"B\": values[0] is 300, expected at "
           "most 4 digits for item 0 \"Heat\"."},
    {"MinAboveMax", "\"min\": 0, \"max\": 300", "\"min\": 301, \"max\": 300",
     "groups[0].items[0].min: " + ITEM
         + "min is 301, expected at most max (300).\n"
           "groups[0].recipes[0].values[0]: "
         + RECIPE
         + "values[0] is 21.5, expected 301.0 to 300.0 for item 0 \"Heat\".\n"
           "groups[0].recipes[1].values[0]: group 0 \"Oven\", recipe 1 \"B\": values[0] is 300, expected "
           "301.0 to 300.0 for item 0 \"Heat\"."},
    {"LimitWithMoreDecimalsThanTheItem", "\"max\": 300", "\"max\": 300.25",
     "groups[0].items[0].max: " + ITEM + "max is 300.25, expected at most 1 decimal."},
    {"LimitOfWrongType", "\"min\": 0", "\"min\": \"low\"",
     "groups[0].items[0].min: " + ITEM + "min is \"low\", expected a number."},
    {"ValueAboveMax", "[21.5,", "[300.1,",
     "groups[0].recipes[0].values[0]: " + RECIPE + "values[0] is 300.1, expected 0.0 to 300.0 for item 0 \"Heat\"."},
    {"ValueNoNumber", "[21.5,", "[\"warm\",",
     "groups[0].recipes[0].values[0]: " + RECIPE + "values[0] is \"warm\", expected a number for item 0 \"Heat\"."},
    {"ValueNotFinite", "[21.5,", "[\"inf\",",
     "groups[0].recipes[0].values[0]: " + RECIPE + "values[0] is \"inf\", expected a number for item 0 \"Heat\"."},
    {"ValueWithACommaForItsPoint", "[21.5,", "[\"21,5\",",
     "groups[0].recipes[0].values[0]: " + RECIPE
         + "values[0] is \"21,5\", expected a number with \".\" as its decimal mark for item 0 \"Heat\"."},
    {"ValueWithTooManyDecimals", "[21.5,", "[21.55,",
     "groups[0].recipes[0].values[0]: " + RECIPE
         + "values[0] is 21.55, expected at most 1 decimal for item 0 \"Heat\"."},
    {"ValueOfWrongType", "[21.5,", "[true,",
     "groups[0].recipes[0].values[0]: " + RECIPE + "values[0] is true, expected a number for item 0 \"Heat\"."},
    {"ValueNull", "[21.5,", "[null,",
     "groups[0].recipes[0].values[0]: " + RECIPE + "values[0] is missing, expected a number for item 0 \"Heat\"."},
    {"ValueMissing", "[21.5, \"abc\"]", "[21.5]",
     "groups[0].recipes[0].values[1]: " + RECIPE
         + "values[1] is missing, expected a text in double quotes for item 1 \"Code\"."},
    {"AllValuesMissing", "{\"names\": \"A\", \"values\": [21.5, \"abc\"]}", "{\"names\": \"A\"}",
     "groups[0].recipes[0].values: " + RECIPE + "values is missing, expected a list of 2 values, one per item."},
    {"OneValueTooMany", "[21.5, \"abc\"]", "[21.5, \"abc\", 1]",
     "groups[0].recipes[0].values: " + RECIPE + "values is a list of 3, expected a list of 2 values, one per item."},
    {"NumberForAText", "\"abc\"", "7",
     "groups[0].recipes[0].values[1]: " + RECIPE
         + "values[1] is 7, expected a text in double quotes for item 1 \"Code\"."},
    {"TextLongerThanItsWords", "\"abc\"", "\"abcdefg\"",
     "groups[0].recipes[0].values[1]: " + RECIPE
         + "values[1] is \"abcdefg\", expected a text of at most 3 words (6 bytes) for item 1 \"Code\"."},
    {"TextLongerThanItsMaximum", "\"totalDigits\": 3", "\"totalDigits\": 3, \"max\": 2",
     "groups[0].recipes[0].values[1]: " + RECIPE
         + "values[1] is \"abc\", expected a text of 0 to 2 characters for item 1 \"Code\".\n"
           "groups[0].recipes[1].values[1]: group 0 \"Oven\", recipe 1 \"B\": values[1] is \"007\", expected a text "
           "of 0 to 2 characters for item 1 \"Code\"."},
    {"NoRecipes",
     "\"recipes\": [\n        {\"names\": \"A\", \"values\": [21.5, \"abc\"]},\n        {\"names\": "
     "\"B\", \"values\": [300, \"007\"]}\n      ]",
     "\"recipes\": []",
     "groups[0].recipes: group 0 \"Oven\": recipes is a list of 0, expected 1 to 1000000 recipes (a group without "
     "recipes cannot be written)."},
    {"NotifyWithoutAddress", "\"notifyAddress\": {\"device\": \"PLC\", \"regType\": \"M\", \"part4\": \"10\"}",
     "\"notify\": 1", "groups[0].notify: group 0 \"Oven\": notify is 1, expected a notifyAddress beside it."},
    {"TitlesTooLongForTheirStatement", "\"names\": \"Heat\"",
     "\"names\": [\"Heat\", \"" + std::string(500, '\'') + "\", \"\"]",
     "groups[0].items[0].names: group 0 \"Oven\", item 0: names is 1024 bytes in all, expected at most 879 for the "
     "eight titles together (UTF-8, single quotes counted twice)."},
    {"ZeroCharacterInATitle", "\"names\": \"Heat\"", "\"names\": [\"Heat\", \"a\\u0000b\"]",
     "groups[0].items[0].names: group 0 \"Oven\", item 0: names is a text with a zero character, expected texts "
     "without one."},
};

void PrintTo(const Fault& fault, std::ostream* out)
{
    *out << fault.name;
}

class DescriptionError : public ProgramTest, public testing::WithParamInterface<Fault>
{
};

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    return text.replace(place, from.size(), to);
}

/// Each line behind the program's name.
std::string talk(const std::string& lines)
{
    std::string result = "recipe-file: ";
    for (const char c : lines)
        result += c == '\n' ? std::string("\nrecipe-file: ") : std::string(1, c);
    return result + '\n';
}

class Description : public ProgramTest
{
};

} // namespace

TEST_P(DescriptionError, IsNamedWithItsPlaceAndNothingIsWritten)
{
    const Fault& fault = GetParam();
    write("d.json", replaced(GOOD, fault.from, fault.to));
    const Outcome result = run({"create", "d.json", "r.db3"});
    const auto count = std::count(fault.complaint.begin(), fault.complaint.end(), '\n') + 1;
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, talk(fault.complaint + "\nd.json has " + std::to_string(count)
                               + (count == 1 ? " error" : " errors") + "; nothing was written."));
    EXPECT_EQ(files(), Words{"d.json"});
}

INSTANTIATE_TEST_SUITE_P(Kinds, DescriptionError, testing::ValuesIn(FAULTS),
                         [](const testing::TestParamInfo<Fault>& fault) { return std::string(fault.param.name); });

TEST_F(Description, WithoutErrorsIsWritten)
{
    write("d.json", GOOD);
    EXPECT_EQ(run({"create", "d.json", "r.db3"}).code, 0);
}

TEST_F(Description, HasAllItsErrorsNamedAtOnce)
{
    std::string text = replaced(GOOD, "21.5", "999");
    text = replaced(text, "\"regType\": \"D\"", "\"regType\": \"D,\"");
    text = replaced(text, "\"007\"", "\"0123456789\"");
    write("d.json", text);
    const Outcome result = run({"create", "d.json", "r.db3", "--json"});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("\"error\": \"d.json has 3 errors; nothing was written.\""), std::string::npos);
    EXPECT_NE(result.out.find("\"path\": \"groups[0].items[0].address.regType\""), std::string::npos);
    EXPECT_NE(result.out.find("\"path\": \"groups[0].recipes[0].values[0]\""), std::string::npos);
    EXPECT_NE(result.out.find("\"path\": \"groups[0].recipes[1].values[1]\""), std::string::npos);
}

TEST_F(Description, ThatIsNoJsonIsToldWithItsLine)
{
    write("d.json", "{\n  \"groups\": [,]\n}");
    const Outcome result = run({"create", "d.json", "r.db3"});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.err,
              "recipe-file: d.json is not JSON: parse error at line 2, column 14: syntax error while parsing "
              "value - unexpected ','; expected '[', '{', or a literal.\n");
}

TEST_F(Description, OfMoreItemsThanATableHasColumnsIsRefused)
{
    std::string items;
    std::string values;
    for (int i = 0; i < 2000; ++i) {
        items += std::string(i > 0 ? "," : "") + R"({"address": "P,0,0,D,1,0"})";
        values += i > 0 ? ",1" : "1";
    }
    write("d.json", R"({"groups": [{"items": [)" + items + R"(], "recipes": [{"values": [)" + values + "]}]}]}");
    EXPECT_EQ(run({"create", "d.json", "r.db3"}).err,
              "recipe-file: groups[0].items: group 0 \"Group 0\": items is a list of 2000, expected 1 to 1999 items (a "
              "table of the file has at most 2000 columns).\n"
              "recipe-file: d.json has 1 error; nothing was written.\n");
}

TEST_F(Description, WithTheSameGroupIndexTwiceIsRefused)
{
    const std::string group = R"({"index": 4, "items": [{"address": "P,0,0,D,1,0"}], "recipes": [{"values": [1]}]})";
    write("d.json", R"({"groups": [)" + group + ',' + group + "]}");
    EXPECT_EQ(run({"create", "d.json", "r.db3"}).err,
              "recipe-file: groups[1].index: group 4 \"Group 4\": index is 4, expected an index that no other group "
              "has.\nrecipe-file: d.json has 1 error; nothing was written.\n");
}
