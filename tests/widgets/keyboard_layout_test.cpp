// Where the on-screen keyboard goes and how large its keys are.
#include "keyboard_layout.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

const QRect SMALL_PANEL(0, 0, 800, 480);  // 7 inches
const QRect LARGE_PANEL(0, 0, 1280, 800); // 10.1 inches
const double SMALL_DPI = 133;
const double LARGE_DPI = 149;

const KeyboardForm FORMS[] = {KeyboardForm::WholeNumber, KeyboardForm::DecimalNumber, KeyboardForm::Text};

std::string describe(const QRect& rect)
{
    return std::to_string(rect.x()) + "," + std::to_string(rect.y()) + " " + std::to_string(rect.width()) + "x"
           + std::to_string(rect.height());
}

/// Every rectangle inside the frame, the frame inside the area, no two in each other's way.
void expectSound(const KeyboardLayout& layout, const QRect& area)
{
    EXPECT_TRUE(area.contains(layout.frame)) << describe(layout.frame);
    QVector<QRect> header{layout.subject, layout.entry, layout.info};
    if (!layout.messageIsInfo)
        header.append(layout.message);
    for (const QVector<KeyboardKey>& page : layout.pages) {
        QVector<QRect> all(header);
        for (const KeyboardKey& key : page)
            all.append(key.rect);
        for (int i = 0; i < all.size(); ++i) {
            EXPECT_FALSE(all.at(i).isEmpty()) << i << ": " << describe(all.at(i));
            EXPECT_TRUE(layout.frame.contains(all.at(i))) << i << ": " << describe(all.at(i));
            for (int k = 0; k < i; ++k)
                EXPECT_FALSE(all.at(i).intersects(all.at(k))) << describe(all.at(i)) << " and " << describe(all.at(k));
        }
    }
}

QString charactersOf(const KeyboardLayout& layout, int page)
{
    QString characters;
    for (const KeyboardKey& key : layout.pages.at(page)) {
        if (key.action == KeyAction::Character)
            characters += key.character;
    }
    return characters;
}

void expectCharacters(const KeyboardLayout& layout, int page, const QString& wanted)
{
    for (const QChar character : wanted)
        EXPECT_EQ(charactersOf(layout, page).count(character), 1) << page << ": " << QString(character).toStdString();
}

bool has(const KeyboardLayout& layout, int page, KeyAction action)
{
    for (const KeyboardKey& key : layout.pages.at(page)) {
        if (key.action == action)
            return true;
    }
    return false;
}

} // namespace

struct PlaceRow
{
    const char* what;
    KeyboardForm form;
    QRect area;
    double dpi;
    QRect cell;
    QRect frame;
};

static const PlaceRow PLACES[] = {
    {"a number on a desk: below", KeyboardForm::DecimalNumber, LARGE_PANEL, 96, QRect(500, 60, 100, 30),
     QRect(408, 98, 282, 374)},
    {"a number on a desk: above", KeyboardForm::DecimalNumber, LARGE_PANEL, 96, QRect(500, 600, 100, 30),
     QRect(408, 218, 282, 374)},
    {"no cell: in the middle", KeyboardForm::DecimalNumber, LARGE_PANEL, 96, QRect(), QRect(498, 212, 282, 374)},
    {"a cell beyond the panel: in the middle", KeyboardForm::DecimalNumber, LARGE_PANEL, 96, QRect(1300, 0, 90, 30),
     QRect(498, 212, 282, 374)},
    {"a text on a small panel, at the top: below, all rows", KeyboardForm::Text, SMALL_PANEL, 133,
     QRect(350, 0, 100, 30), QRect(16, 41, 766, 436)},
    {"lower: below, fewer rows", KeyboardForm::Text, SMALL_PANEL, 133, QRect(350, 100, 100, 30),
     QRect(1, 141, 796, 301)},
    {"a number in the middle of a small panel: on the right", KeyboardForm::DecimalNumber, SMALL_PANEL, 133,
     QRect(350, 220, 100, 30), QRect(461, 0, 336, 479)},
};

TEST(KeyboardLayout, GoesBesideTheCell)
{
    for (const PlaceRow& row : PLACES) {
        const KeyboardLayout layout = layOutKeyboard(row.form, {row.area, row.cell, row.dpi});
        EXPECT_EQ(describe(layout.frame), describe(row.frame)) << row.what;
    }
}

TEST(KeyboardLayout, NeverCoversACellOnTheDeskOrOnALargePanel)
{
    for (const KeyboardForm form : FORMS) {
        for (int x = 0; x + 90 <= LARGE_PANEL.width(); x += 70) {
            for (int y = 0; y + 30 <= LARGE_PANEL.height(); y += 30) {
                for (const double dpi : {96.0, LARGE_DPI}) {
                    const QRect cell(x, y, 90, 30);
                    const KeyboardLayout layout = layOutKeyboard(form, {LARGE_PANEL, cell, dpi});
                    EXPECT_FALSE(layout.coversCell) << describe(cell) << " at " << dpi;
                    EXPECT_FALSE(layout.frame.intersects(cell)) << describe(cell) << " at " << dpi;
                    EXPECT_GE(layout.keyMillimetres, 9.0);
                    expectSound(layout, LARGE_PANEL);
                }
            }
        }
    }
}

TEST(KeyboardLayout, NeverCoversACellOfANumberOnASmallPanel)
{
    for (int x = 0; x + 130 <= SMALL_PANEL.width(); x += 35) {
        for (int y = 0; y + 40 <= SMALL_PANEL.height(); y += 20) {
            const QRect cell(x, y, 130, 40);
            const KeyboardLayout layout = layOutKeyboard(KeyboardForm::DecimalNumber, {SMALL_PANEL, cell, SMALL_DPI});
            EXPECT_FALSE(layout.coversCell) << describe(cell);
            EXPECT_GE(layout.keyMillimetres, 9.0);
            expectSound(layout, SMALL_PANEL);
        }
    }
}

TEST(KeyboardLayout, CoversATextCellOnlyInTheMiddleOfASmallPanel)
{
    for (int y = 0; y + 30 <= SMALL_PANEL.height(); y += 10) {
        const QRect cell(350, y, 100, 30);
        const KeyboardLayout layout = layOutKeyboard(KeyboardForm::Text, {SMALL_PANEL, cell, SMALL_DPI});
        EXPECT_EQ(layout.coversCell, y > 212 && y < 238) << y; // a keyboard with keys of 9 mm is 238 pixels high
        EXPECT_EQ(layout.coversCell, layout.frame.intersects(cell)) << y;
        EXPECT_GE(layout.keyMillimetres, 9.0) << y;
        expectSound(layout, SMALL_PANEL);
    }
}

TEST(KeyboardLayout, MakesKeysOfNineMillimetresOrMore)
{
    for (const double dpi : {72.0, 96.0, 120.0, 133.0, 149.0}) {
        const KeyboardLayout layout = layOutKeyboard(KeyboardForm::Text, {LARGE_PANEL, QRect(0, 0, 90, 30), dpi});
        EXPECT_FALSE(layout.keysAreTooSmall());
        for (const KeyboardKey& key : layout.pages.first()) {
            EXPECT_GE(key.rect.width() * 25.4 / dpi, 9.0);
            EXPECT_GE(key.rect.height() * 25.4 / dpi, 9.0);
        }
    }
}

TEST(KeyboardLayout, MakesKeysAsLargeAsATinyAreaAllowsAndSaysSo)
{
    for (const KeyboardForm form : FORMS) {
        for (const QRect& area : {QRect(0, 0, 320, 240), QRect(0, 0, 200, 480), QRect(0, 0, 480, 150)}) {
            const KeyboardLayout layout = layOutKeyboard(form, {area, QRect(100, 100, 60, 20), SMALL_DPI});
            EXPECT_TRUE(layout.keysAreTooSmall()) << describe(area);
            EXPECT_GT(layout.keyMillimetres, 1.0) << describe(area);
            // It fills the area in one direction.
            EXPECT_TRUE(layout.frame.width() > area.width() * 0.85 || layout.frame.height() > area.height() * 0.85)
                << describe(layout.frame);
            expectSound(layout, area);
        }
    }
}

TEST(KeyboardLayout, SurvivesAnAreaOfNothing)
{
    for (const QRect& area : {QRect(0, 0, 1, 1), QRect()}) {
        const KeyboardLayout layout = layOutKeyboard(KeyboardForm::Text, {area, QRect(0, 0, 60, 20), 96});
        EXPECT_TRUE(layout.keysAreTooSmall());
        EXPECT_FALSE(layout.pages.isEmpty());
    }
}

TEST(KeyboardLayout, TakesADensityThatMakesNoSenseForADesks)
{
    const KeyboardPlace desk{LARGE_PANEL, QRect(500, 60, 100, 30), 96};
    for (const double dpi :
         {0.0, -96.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        const KeyboardPlace place{LARGE_PANEL, QRect(500, 60, 100, 30), dpi};
        EXPECT_EQ(layOutKeyboard(KeyboardForm::Text, place).frame, layOutKeyboard(KeyboardForm::Text, desk).frame);
    }
}

TEST(KeyboardLayout, HasAPointOnlyWhereDecimalsAreWanted)
{
    const KeyboardPlace place{LARGE_PANEL, QRect(), 96};
    EXPECT_EQ(charactersOf(layOutKeyboard(KeyboardForm::WholeNumber, place), 0).toStdString(), "7894561230");
    EXPECT_EQ(charactersOf(layOutKeyboard(KeyboardForm::DecimalNumber, place), 0).toStdString(), "7894561230.");
}

TEST(KeyboardLayout, HasEveryControlOnEveryPage)
{
    for (const KeyboardForm form : FORMS) {
        for (const QRect& area : {LARGE_PANEL, SMALL_PANEL}) {
            const KeyboardLayout layout = layOutKeyboard(form, {area, QRect(350, 20, 90, 30), SMALL_DPI});
            for (int page = 0; page < layout.pages.size(); ++page) {
                for (const KeyAction action :
                     {KeyAction::Accept, KeyAction::Cancel, KeyAction::Backspace, KeyAction::Clear})
                    EXPECT_TRUE(has(layout, page, action)) << page << " " << static_cast<int>(action);
                EXPECT_EQ(has(layout, page, KeyAction::Page), form == KeyboardForm::Text);
                EXPECT_EQ(has(layout, page, KeyAction::Sign), form != KeyboardForm::Text);
            }
        }
    }
}

TEST(KeyboardLayout, OffersLettersSignsAndAccentsInBothTextForms)
{
    const KeyboardPlace tall{LARGE_PANEL, QRect(), 96};
    const KeyboardPlace flat{SMALL_PANEL, QRect(350, 10, 90, 150), SMALL_DPI};
    EXPECT_FALSE(layOutKeyboard(KeyboardForm::Text, tall).messageIsInfo);
    EXPECT_TRUE(layOutKeyboard(KeyboardForm::Text, flat).messageIsInfo);
    for (const KeyboardPlace& place : {tall, flat}) {
        const KeyboardLayout layout = layOutKeyboard(KeyboardForm::Text, place);
        expectCharacters(layout, 0, QStringLiteral("abcdefghijklmnopqrstuvwxyz -"));
        expectCharacters(layout, 2, QStringLiteral("äöüßàáâçèéêëìíîïñòóôùúûœæåø "));
        expectCharacters(layout, 1, QStringLiteral("0123456789 .-,:;/+*=()%&#@_!?"));
    }
}

TEST(KeyboardLayout, FindsAKeyOnlyInsideItsRectangle)
{
    const KeyboardLayout layout = layOutKeyboard(KeyboardForm::WholeNumber, {LARGE_PANEL, QRect(), 96});
    for (const KeyboardKey& key : layout.pages.first()) {
        EXPECT_EQ(layout.keyAt(0, key.rect.topLeft()), &key);
        EXPECT_EQ(layout.keyAt(0, key.rect.bottomRight()), &key);
        EXPECT_NE(layout.keyAt(0, key.rect.bottomRight() + QPoint(1, 1)), &key);
    }
    EXPECT_EQ(layout.keyAt(0, layout.entry.center()), nullptr);
}
