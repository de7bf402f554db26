// The on-screen keyboard under fingers and under a physical keyboard.
#include "on_screen_keyboard.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace {

OnScreenKeyboard::Request numberRequest(const char* old, const char* minimum, const char* maximum, int decimals)
{
    OnScreenKeyboard::Request request;
    request.parameters.currentText = QString::fromUtf8(old);
    request.parameters.minimum = QString::fromUtf8(minimum);
    request.parameters.maximum = QString::fromUtf8(maximum);
    request.parameters.decimalPlaces = decimals;
    request.cell = QRect(300, 100, 90, 30);
    request.area = QRect(0, 0, 1280, 800);
    request.dpi = 96;
    return request;
}

OnScreenKeyboard::Request textRequest(const char* old, const char* longest)
{
    OnScreenKeyboard::Request request = numberRequest(old, "0", longest, 0);
    request.parameters.textEntry = true;
    request.parameters.formatCode = 4;
    return request;
}

class Keyboard : public testing::Test
{
protected:
    void open(const OnScreenKeyboard::Request& request)
    {
        parent.resize(1280, 800);
        parent.show();
        keyboard.reset(new OnScreenKeyboard(request, &parent));
        keyboard->show();
        accepted.reset(new QSignalSpy(keyboard.get(), &OnScreenKeyboard::accepted));
        cancelled.reset(new QSignalSpy(keyboard.get(), &OnScreenKeyboard::cancelled));
    }

    QPoint find(KeyAction action, QChar character = QChar()) const
    {
        for (const KeyboardKey& key : keyboard->arrangement().pages.at(keyboard->page())) {
            if (key.action == action && key.character == character)
                return key.rect.center();
        }
        ADD_FAILURE() << "no such key: " << static_cast<int>(action) << " " << character.toLatin1();
        return QPoint();
    }

    void tap(KeyAction action) { QTest::mouseClick(keyboard.get(), Qt::LeftButton, Qt::NoModifier, find(action)); }

    void tap(const char* characters)
    {
        for (const QChar c : QString::fromUtf8(characters))
            QTest::mouseClick(keyboard.get(), Qt::LeftButton, Qt::NoModifier, find(KeyAction::Character, c));
    }

    std::string text() const { return keyboard->text().toStdString(); }
    std::string message() const { return keyboard->message().toStdString(); }
    std::string answer() const
    {
        return accepted->size() == 1 ? accepted->first().first().toString().toStdString() : "(none)";
    }

    QWidget parent;
    std::unique_ptr<OnScreenKeyboard> keyboard;
    std::unique_ptr<QSignalSpy> accepted;
    std::unique_ptr<QSignalSpy> cancelled;
};

} // namespace

TEST_F(Keyboard, StartsWithTheOldTextAndReplacesItByTheFirstKey)
{
    open(numberRequest("12.50", "0", "100", 2));
    EXPECT_EQ(text(), "12.50");
    tap("7");
    EXPECT_EQ(text(), "7");
    tap("5");
    EXPECT_EQ(text(), "75");
}

TEST_F(Keyboard, KeepsTheOldTextWhereTheEntryIsTouchedFirst)
{
    open(textRequest("Rye", "32"));
    QTest::mouseClick(keyboard.get(), Qt::LeftButton, Qt::NoModifier, keyboard->arrangement().entry.center());
    tap("s");
    EXPECT_EQ(text(), "Ryes");
}

TEST_F(Keyboard, HandsTheAcceptedTextOnOnceAndHides)
{
    open(numberRequest("1.00", "0", "100", 2));
    tap("42.5");
    tap(KeyAction::Accept);
    EXPECT_EQ(answer(), "42.5");
    EXPECT_TRUE(keyboard->isHidden());
    EXPECT_FALSE(keyboard->acceptText(QStringLiteral("3")));
    keyboard->accept();
    keyboard->cancel();
    EXPECT_EQ(accepted->size(), 1);
    EXPECT_EQ(cancelled->size(), 0);
}

TEST_F(Keyboard, AcceptsTheOldTextUnchanged)
{
    open(numberRequest("12.50", "0", "100", 2));
    tap(KeyAction::Accept);
    EXPECT_EQ(answer(), "12.50");
}

TEST_F(Keyboard, CancelsOnceWithoutAText)
{
    open(numberRequest("1", "0", "100", 0));
    tap("5");
    tap(KeyAction::Cancel);
    EXPECT_EQ(cancelled->size(), 1);
    EXPECT_EQ(accepted->size(), 0);
    EXPECT_TRUE(keyboard->isHidden());
}

TEST_F(Keyboard, RefusesWhatIsOutOfRangeAndSaysWhy)
{
    open(numberRequest("15", "10", "20", 0));
    tap("9");
    EXPECT_EQ(message(), "");
    tap(KeyAction::Accept);
    EXPECT_EQ(message(), "Too small: the smallest value is 10.");
    EXPECT_FALSE(keyboard->isHidden());
    tap("9");
    EXPECT_EQ(message(), "") << "the next key takes the sentence away";
    tap(KeyAction::Accept);
    EXPECT_EQ(message(), "Too large: the largest value is 20.");
    EXPECT_EQ(accepted->size(), 0);
    tap(KeyAction::Clear);
    tap("12");
    tap(KeyAction::Accept);
    EXPECT_EQ(answer(), "12");
}

TEST_F(Keyboard, RefusesADecimalTooManyAtOnce)
{
    open(numberRequest("0.00", "0", "100", 2));
    tap("1.255");
    EXPECT_EQ(text(), "1.25");
    EXPECT_EQ(message(), "Digits after the point: 2 at most.");
}

TEST_F(Keyboard, RefusesASecondPointAndKeepsWhatWasTyped)
{
    open(numberRequest("0.0", "0", "100", 1));
    tap("1..");
    EXPECT_EQ(text(), "1.");
    EXPECT_EQ(message(), "This is not a number.");
}

TEST_F(Keyboard, RefusesAnEmptyNumber)
{
    open(numberRequest("5", "0", "100", 0));
    tap(KeyAction::Clear);
    tap(KeyAction::Accept);
    EXPECT_EQ(message(), "Enter a number.");
}

TEST_F(Keyboard, RefusesAnOldTextThatIsNoNumber)
{
    open(numberRequest("ERROR", "0", "100", 0));
    tap(KeyAction::Accept);
    EXPECT_EQ(message(), "This is not a number.");
    tap("5");
    tap(KeyAction::Accept);
    EXPECT_EQ(answer(), "5");
}

TEST_F(Keyboard, SaysWhenTheLimitsLeaveNothing)
{
    open(numberRequest("5", "9", "3", 0));
    tap(KeyAction::Accept);
    EXPECT_EQ(message(), "No value is possible: the limits are 9 to 3.");
}

TEST_F(Keyboard, RefusesACharacterTooMany)
{
    open(textRequest("", "3"));
    tap("abcd");
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(message(), "Too long: the greatest length is 3.");
    tap(KeyAction::Accept);
    EXPECT_EQ(answer(), "abc");
}

TEST_F(Keyboard, TurnsTheSignRound)
{
    open(numberRequest("12", "-50", "50", 0));
    tap(KeyAction::Sign);
    EXPECT_EQ(text(), "-") << "the first key replaces";
    tap("4");
    tap(KeyAction::Sign);
    EXPECT_EQ(text(), "4");
    tap(KeyAction::Sign);
    EXPECT_EQ(text(), "-4");
}

TEST_F(Keyboard, TakesBackCharactersOneByOne)
{
    open(textRequest("old", "32"));
    tap("ab");
    tap(KeyAction::Backspace);
    EXPECT_EQ(text(), "a");
    tap(KeyAction::Backspace);
    tap(KeyAction::Backspace);
    EXPECT_EQ(text(), "");
}

TEST_F(Keyboard, TakesBackTheMarkedOldTextWhole)
{
    open(textRequest("old", "32"));
    tap(KeyAction::Backspace);
    EXPECT_EQ(text(), "");
}

TEST_F(Keyboard, LeavesNoHalfOfACharacterBehind)
{
    open(textRequest("a\xf0\x9f\x8d\x9e", "32"));
    QTest::keyClick(keyboard.get(), Qt::Key_End);
    QTest::keyClick(keyboard.get(), Qt::Key_Backspace);
    EXPECT_EQ(text(), "a");
}

TEST_F(Keyboard, ShiftsOneLetterOrLocks)
{
    open(textRequest("", "32"));
    tap(KeyAction::Shift);
    tap("ab");
    EXPECT_EQ(text(), "Ab");
    tap(KeyAction::Shift);
    tap(KeyAction::Shift);
    tap("cd");
    tap(KeyAction::Shift);
    tap("e");
    EXPECT_EQ(text(), "AbCDe");
}

TEST_F(Keyboard, TurnsToSignsToAccentsAndBack)
{
    open(textRequest("", "32"));
    tap("a");
    tap(KeyAction::Page);
    tap("%");
    tap(KeyAction::Page);
    tap("\u00f6");
    tap(KeyAction::Shift);
    tap("\u00e9");
    tap(KeyAction::Page);
    tap("b ");
    EXPECT_EQ(text(), "a%\u00f6\u00c9b ");
}

TEST_F(Keyboard, DoesNothingForAFingerThatSlidesOffItsKey)
{
    open(numberRequest("1", "0", "100", 0));
    const QPoint five = find(KeyAction::Character, QLatin1Char('5'));
    QTest::mousePress(keyboard.get(), Qt::LeftButton, Qt::NoModifier, five);
    QTest::mouseMove(keyboard.get(), QPoint(5, 5));
    QTest::mouseRelease(keyboard.get(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(text(), "1");
    QTest::mousePress(keyboard.get(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseRelease(keyboard.get(), Qt::LeftButton, Qt::NoModifier, five);
    EXPECT_EQ(text(), "1");
}

TEST_F(Keyboard, CountsTheSecondOfTwoQuickTouches)
{
    open(numberRequest("1", "0", "100", 0));
    const QPoint five = find(KeyAction::Character, QLatin1Char('5'));
    QTest::mouseClick(keyboard.get(), Qt::LeftButton, Qt::NoModifier, five);
    QTest::mouseDClick(keyboard.get(), Qt::LeftButton, Qt::NoModifier, five);
    QTest::mouseRelease(keyboard.get(), Qt::LeftButton, Qt::NoModifier, five);
    EXPECT_EQ(text(), "55");
}

namespace {

/// Counts the touches that reach it.
class Sheet : public QWidget
{
public:
    int touches = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++touches; }
};

} // namespace

TEST_F(Keyboard, LetsNoTouchThroughToTheSheet)
{
    Sheet sheet;
    sheet.resize(1280, 800);
    sheet.show();
    OnScreenKeyboard over(numberRequest("1", "0", "100", 0), &sheet);
    over.show();
    QTest::mouseClick(sheet.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(1200, 700));
    EXPECT_EQ(sheet.touches, 0);
    EXPECT_TRUE(over.isVisible());
    over.cancel();
    QTest::mouseClick(sheet.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(1200, 700));
    EXPECT_EQ(sheet.touches, 1);
}

TEST_F(Keyboard, TakesThePhysicalKeys)
{
    open(numberRequest("1", "-100", "100", 1));
    QTest::keyClicks(keyboard.get(), QStringLiteral("-12,5"));
    EXPECT_EQ(text(), "-12.5");
    QTest::keyClick(keyboard.get(), Qt::Key_Backspace);
    QTest::keyClick(keyboard.get(), Qt::Key_4);
    QTest::keyClick(keyboard.get(), Qt::Key_X);
    EXPECT_EQ(text(), "-12.4");
    EXPECT_EQ(message(), "This is not a number.");
    QTest::keyClick(keyboard.get(), Qt::Key_Shift);
    QTest::keyClick(keyboard.get(), Qt::Key_Enter);
    EXPECT_EQ(answer(), "-12.4");
}

TEST_F(Keyboard, TakesPhysicalTextWithCommasAndLettersOfAnyScript)
{
    open(textRequest("x", "32"));
    QTest::keyClicks(keyboard.get(), QStringLiteral("Br"));
    for (const QChar letter : QStringLiteral("\u00f6\u0416"))
        QTest::sendKeyEvent(QTest::Click, keyboard.get(), Qt::Key_unknown, letter, Qt::NoModifier);
    QTest::keyClicks(keyboard.get(), QStringLiteral(", 50 g"));
    QTest::keyClick(keyboard.get(), Qt::Key_Tab);
    QTest::keyClick(keyboard.get(), Qt::Key_Return);
    EXPECT_EQ(answer(), "Br\u00f6\u0416, 50 g");
}

TEST_F(Keyboard, EscapesAndDeletesByPhysicalKeys)
{
    open(textRequest("old", "32"));
    QTest::keyClick(keyboard.get(), Qt::Key_End);
    QTest::keyClick(keyboard.get(), Qt::Key_A);
    EXPECT_EQ(text(), "olda");
    QTest::keyClick(keyboard.get(), Qt::Key_Delete);
    EXPECT_EQ(text(), "");
    QTest::keyClick(keyboard.get(), Qt::Key_Escape);
    EXPECT_EQ(cancelled->size(), 1);
}

TEST_F(Keyboard, TakesATextFromAScriptUnderTheSameRules)
{
    open(numberRequest("1", "0", "100", 1));
    EXPECT_FALSE(keyboard->acceptText(QStringLiteral("101")));
    EXPECT_EQ(message(), "Too large: the largest value is 100.");
    EXPECT_TRUE(keyboard->acceptText(QStringLiteral("99.5")));
    EXPECT_EQ(answer(), "99.5");
}

TEST_F(Keyboard, StaysAsItWasWhenTheItemChangesItsBlock)
{
    KeyboardParameters block;
    block.maximum = QStringLiteral("10");
    OnScreenKeyboard::Request request = numberRequest("1", "0", "10", 0);
    request.parameters = block;
    open(request);
    block.maximum = QStringLiteral("1");
    EXPECT_TRUE(keyboard->acceptText(QStringLiteral("7")));
}

TEST_F(Keyboard, CoversItsAreaWhereverThatIs)
{
    OnScreenKeyboard::Request request = numberRequest("1", "0", "10", 0);
    request.area = QRect(100, 50, 800, 480);
    request.cell = QRect(400, 60, 90, 30);
    open(request);
    EXPECT_EQ(keyboard->geometry(), request.area);
    EXPECT_FALSE(keyboard->arrangement().frame.translated(100, 50).intersects(request.cell));
    EXPECT_EQ(keyboard->arrangement().coversCell, false);
}

TEST_F(Keyboard, SaysWhenThePanelIsTooSmallForItsKeys)
{
    OnScreenKeyboard::Request request = textRequest("1", "10");
    open(request);
    EXPECT_EQ(keyboard->sizeRemark(), QString());
    request.area = QRect(0, 0, 320, 240);
    request.dpi = 133;
    open(request);
    EXPECT_TRUE(keyboard->sizeRemark().startsWith(QStringLiteral("The screen is small: keys are only ")));
}

TEST_F(Keyboard, PaintsWithoutAComplaintInEveryForm)
{
    for (const QRect& area : {QRect(0, 0, 800, 480), QRect(0, 0, 320, 240), QRect(0, 0, 40, 30)}) {
        for (const bool isText : {true, false}) {
            OnScreenKeyboard::Request request =
                isText ? textRequest("Roggenmischbrot mit Kruste aus dem Ofen", "32") : numberRequest("1", "0", "9", 1);
            request.area = area;
            request.dpi = 133;
            open(request);
            EXPECT_FALSE(keyboard->grab().isNull());
            keyboard->accept();
            EXPECT_FALSE(keyboard->grab().isNull());
        }
    }
}

TEST_F(Keyboard, MarksTheEditedCellAndLeavesItBright)
{
    open(numberRequest("1", "0", "9", 1));
    parent.setStyleSheet(QStringLiteral("background: white"));
    const QImage picture = parent.grab().toImage();
    EXPECT_EQ(QColor(picture.pixel(345, 115)), QColor(Qt::white));
    EXPECT_NE(QColor(picture.pixel(100, 700)), QColor(Qt::white));
}
