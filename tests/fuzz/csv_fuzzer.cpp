// The tool's import of CSV sheets. The first byte of an input chooses the form (delimiter, decimal mark, transposed,
// language, strict). What has been taken in comes out again and must then say exactly what the file holds.
#include "csv_sheet.h"
#include "fuzz_frame.h"
#include "import_base.h"

namespace {

Reached cameBack("came_back");

SheetFormat formatOf(unsigned choice)
{
    SheetFormat format;
    format.delimiter = ",;\t,"[choice & 3];
    format.decimalMark = (choice & 4) && format.delimiter != ',' ? ',' : '.';
    format.transposed = (choice & 8) != 0;
    format.language = (choice & 16) ? 2 : 1;
    return format;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    startFuzzing();
    importBase();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const SheetFormat format = formatOf(data[0]);
    const bool strict = (data[0] & 32) != 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    tryImport([&](Database& database, const recipeTableInfo_t& group) {
        const Input input = readCsvSheet(text, "sheet.csv", group, format);
        const std::optional<recipeTableInfo_t> now = takeIn(database, group, input, strict);
        if (!now)
            return;
        std::string out;
        writeCsvSheet(database, *now, format, [&out](const std::string& piece) { out += piece; });
        requireNoChange(database, *now, readCsvSheet(out, "out.csv", *now, format), out);
        ++cameBack;
    });
    return 0;
}
