// Message boxes that items open, under the panel's look.
#include "confirm_box_look.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

/// As an item makes it.
void prepare(QMessageBox& box)
{
    box.setWindowTitle(QStringLiteral("tip"));
    box.setText(QStringLiteral("About to autosave, whether to continue?"));
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
}

class ConfirmBox : public testing::Test
{
protected:
    void TearDown() override { qApp->setStyleSheet(QString()); }
};

} // namespace

TEST_F(ConfirmBox, HasButtonsForFingersApartFromEachOther)
{
    for (const double dpi : {96.0, 133.0, 149.0}) {
        adaptConfirmBoxes(*qApp, dpi);
        QMessageBox box;
        prepare(box);
        box.show();
        const QRect yes = box.button(QMessageBox::Yes)->geometry();
        const QRect no = box.button(QMessageBox::No)->geometry();
        const int margin = static_cast<int>(2.5 * dpi / 25.4); // belongs to the geometry, cannot be touched
        for (const QRect& button : {yes, no}) {
            EXPECT_GE((button.width() - 2 * margin) * 25.4 / dpi, 20.0);
            EXPECT_GE((button.height() - 2 * margin) * 25.4 / dpi, 12.0);
        }
        EXPECT_FALSE(yes.intersects(no));
        EXPECT_LE(box.width(), 800);
        EXPECT_LE(box.height(), 480);
    }
}

/// A least width in the style sheet once hid the text's own width from the box, and the end of the text was cut off.
TEST_F(ConfirmBox, ShowsItsWholeText)
{
    adaptConfirmBoxes(*qApp, 110);
    QMessageBox box;
    prepare(box);
    box.show();
    const QLabel* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    ASSERT_NE(label, nullptr);
    EXPECT_GE(label->width(), label->wordWrap() ? 0 : label->sizeHint().width());
    EXPECT_GE(label->height(), label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height());
}

TEST_F(ConfirmBox, AnswersTheTouchOfItsButtons)
{
    adaptConfirmBoxes(*qApp, 133);
    for (const QMessageBox::StandardButton wanted : {QMessageBox::Yes, QMessageBox::No}) {
        QMessageBox box;
        prepare(box);
        QTimer::singleShot(0, &box, [&box, wanted]() { QTest::mouseClick(box.button(wanted), Qt::LeftButton); });
        EXPECT_EQ(box.exec(), wanted);
    }
}

TEST_F(ConfirmBox, KeepsTheStyleSheetThatIsThere)
{
    const QString own = QStringLiteral("QLineEdit { color: red; }\n");
    qApp->setStyleSheet(own);
    adaptConfirmBoxes(*qApp, 96);
    const int length = qApp->styleSheet().size();
    EXPECT_TRUE(qApp->styleSheet().startsWith(own));
    adaptConfirmBoxes(*qApp, 96);
    EXPECT_EQ(qApp->styleSheet().size(), length);
    adaptConfirmBoxes(*qApp, 149);
    EXPECT_EQ(qApp->styleSheet().count(QStringLiteral("QMessageBox {")), 1);
}
