// Parsing of scripts.
#include "script.h"

#include <gtest/gtest.h>

namespace {

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

std::string problemsOf(const char* text)
{
    Script script;
    EXPECT_FALSE(script.parse(latin("s"), QString::fromUtf8(text)));
    return script.problems().join(QLatin1Char('\n')).toStdString();
}

ScriptStep only(const char* text)
{
    Script script;
    EXPECT_TRUE(script.parse(latin("s"), QString::fromUtf8(text)))
        << script.problems().join(QLatin1Char('\n')).toStdString();
    return script.steps().size() == 1 ? script.steps().first() : ScriptStep();
}

} // namespace

TEST(Script, TakesNumbersWordsAndTexts)
{
    const ScriptStep step = only("  expect cell 3 -2 \"a \\\"b\\\" \\\\ c\\nd # e\"   # remark\n\n# another\n");
    EXPECT_EQ(step.action, ScriptAction::ExpectCell);
    EXPECT_EQ(step.line, 1);
    ASSERT_EQ(step.arguments.size(), 3);
    EXPECT_EQ(step.arguments.at(0), QVariant(3));
    EXPECT_EQ(step.arguments.at(1), QVariant(-2));
    EXPECT_EQ(step.arguments.at(2).toString(), latin("a \"b\" \\ c\nd # e"));
}

TEST(Script, TellsPointsFromParts)
{
    EXPECT_EQ(only("tap 3 4").action, ScriptAction::TapPoint);
    EXPECT_EQ(only("tap cell 3 4").action, ScriptAction::TapCell);
    EXPECT_EQ(only("tap button save").action, ScriptAction::TapButton);
    EXPECT_EQ(only("release").action, ScriptAction::Release);
    EXPECT_EQ(only("release 1 2").action, ScriptAction::ReleaseAt);
    EXPECT_EQ(only("expect no message").action, ScriptAction::ExpectNoMessage);
    EXPECT_EQ(only("expect pending 2").action, ScriptAction::ExpectPendingCount);
    EXPECT_EQ(only("expect pending 2 1 \"x\"").action, ScriptAction::ExpectPending);
}

TEST(Script, TellsRegistersOfThePanelFromThoseOfControllers)
{
    EXPECT_EQ(only("set LW 5 6").action, ScriptAction::SetRegister);
    const ScriptStep set = only("set \"Bakery controller:D\" 5 6");
    EXPECT_EQ(set.action, ScriptAction::SetRegister);
    EXPECT_EQ(set.arguments.at(0).toString(), latin("Bakery controller:D"));
    EXPECT_EQ(only("expect register \"a:D\" 5 6").action, ScriptAction::ExpectRegister);
    EXPECT_EQ(only("expect register \"a:D\" 5 \"6 7\"").action, ScriptAction::ExpectRegisters);
    EXPECT_EQ(only("expect register LW 5 \"6 7\"").action, ScriptAction::ExpectRegisters);
}

TEST(Script, TakesLinksDownAndUpAndNothingElse)
{
    EXPECT_EQ(only("link \"Oven\" down").action, ScriptAction::Link);
    EXPECT_EQ(only("expect link \"Oven\" up").action, ScriptAction::ExpectLink);
    EXPECT_EQ(problemsOf("link \"Oven\" off"), "s:1: found off, expected down or up.");
    EXPECT_EQ(problemsOf("expect link \"Oven\" no"), "s:1: found no, expected down or up.");
    EXPECT_EQ(problemsOf("answer maybe"), "s:1: found maybe, expected yes or no.");
    EXPECT_EQ(problemsOf("link Oven down"), "s:1: found \"link Oven down\", expected link \"TEXT\" WORD.");
    EXPECT_EQ(only("send").arguments.size(), 0);
    EXPECT_EQ(problemsOf("send 1"), "s:1: found \"send 1\", expected send.");
}

TEST(Script, TakesTheItemAtTheEnd)
{
    const ScriptStep step = only("tap title 2 in left");
    EXPECT_EQ(step.action, ScriptAction::TapTitle);
    EXPECT_EQ(step.item, latin("left"));
    EXPECT_EQ(step.arguments.size(), 1);
    EXPECT_EQ(only("expect cell 0 0 \"in left\"").item, QString());
}

TEST(Script, TellsEveryFaultWithItsLine)
{
    EXPECT_EQ(problemsOf("tap cell 1 2\ntapp 1 2\nwait forever\n\nexpect message \"open\nanswer maybe\ntap cell x 2"),
              "s:2: there is no command \"tapp\"; --script-help lists the commands.\n"
              "s:3: found \"wait forever\", expected wait idle or wait worker or wait message \"TEXT\".\n"
              "s:5: a text is not closed by a quote.\n"
              "s:6: found maybe, expected yes or no.\n"
              "s:7: found \"tap cell x 2\", expected tap cell NUMBER NUMBER.");
}

TEST(Script, WantsTextsInQuotesAndNumbersWithout)
{
    EXPECT_NE(problemsOf("keyboard accept 5"), "");
    EXPECT_NE(problemsOf("tap cell \"1\" 2"), "");
    EXPECT_NE(problemsOf("tap cell 1 2 3"), "");
    EXPECT_NE(problemsOf("tap cell 99999999999 2"), "");
}

TEST(Script, MayBeEmpty)
{
    Script script;
    EXPECT_TRUE(script.parse(latin("s"), QString()));
    EXPECT_EQ(script.steps().size(), 0);
}

TEST(Script, HelpTellsEveryForm)
{
    for (const char* form : {"tap cell NUMBER NUMBER", "keyboard accept \"TEXT\"", "power-cut", "answer WORD"})
        EXPECT_TRUE(Script::help().contains(latin(form))) << form;
}
