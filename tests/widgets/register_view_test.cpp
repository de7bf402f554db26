// Watching and forcing word registers.
#include "register_view.h"

#include <QComboBox>
#include <QHash>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class Registers : public RegisterAccess
{
public:
    int word(const QString& type, int address) const override { return m_words.value({type, address}); }

    bool force(const QString& type, int address, int value) override
    {
        if (type == QLatin1String("RO"))
            return false;
        m_words[{type, address}] = value;
        Q_EMIT changed(type, address, value);
        return true;
    }

private:
    QHash<QPair<QString, int>, int> m_words;
};

const QString LW = QStringLiteral("LW");

class RegisterTable : public testing::Test
{
protected:
    void SetUp() override
    {
        view.resize(400, 400);
        view.show();
        table = view.findChild<QTableView*>();
    }

    std::string cell(int row, int column) const
    {
        return model.data(model.index(row, column), Qt::DisplayRole).toString().toStdString();
    }

    template <typename Widget> Widget* part(const char* name) const
    {
        return view.findChild<Widget*>(QString::fromLatin1(name));
    }

    void add(const char* type, int address)
    {
        part<QComboBox>("type")->setEditText(QString::fromLatin1(type));
        part<QSpinBox>("address")->setValue(address);
        QTest::mouseClick(part<QPushButton>("add"), Qt::LeftButton);
    }

    /// Types a value into the value cell of a row, as a person would.
    void typeValue(int row, const char* digits)
    {
        const QModelIndex index = model.index(row, RegisterModel::VALUE);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, table->visualRect(index).center());
        QSpinBox* editor = table->viewport()->findChild<QSpinBox*>();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, QString::fromLatin1(digits));
        QTest::keyClick(editor, Qt::Key_Return);
        // The table commits what was typed from the event loop.
        const QPointer<QSpinBox> guard(editor);
        ASSERT_TRUE(QTest::qWaitFor([&guard]() { return guard.isNull(); }));
    }

    Registers registers;
    ManualClock clock;
    RegisterView view{registers, clock};
    RegisterModel& model = view.model();
    QTableView* table = nullptr;
};

} // namespace

TEST_F(RegisterTable, WatchesTheSelectionRegistersByName)
{
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(cell(0, RegisterModel::NAME), "Selected group");
    EXPECT_EQ(cell(0, RegisterModel::ADDRESS), "60802");
    EXPECT_EQ(cell(1, RegisterModel::NAME), "Selected recipe");
    EXPECT_EQ(cell(1, RegisterModel::TYPE), "LW");
    EXPECT_EQ(cell(1, RegisterModel::ADDRESS), "60803");
    EXPECT_EQ(cell(1, RegisterModel::VALUE), "0");
}

TEST_F(RegisterTable, ShowsAChangeAndLetsItStandOutForAMoment)
{
    QSignalSpy repaints(&model, &RegisterModel::dataChanged);
    registers.force(LW, 60803, 17);
    EXPECT_EQ(cell(1, RegisterModel::VALUE), "17");
    EXPECT_TRUE(model.isFlashing(1));
    EXPECT_FALSE(model.isFlashing(0));
    EXPECT_TRUE(model.data(model.index(1, RegisterModel::VALUE), Qt::BackgroundRole).isValid());
    EXPECT_EQ(repaints.size(), 1);
    clock.advance(RegisterModel::FLASH_DURATION - 1);
    EXPECT_TRUE(model.isFlashing(1));
    clock.advance(1);
    EXPECT_FALSE(model.isFlashing(1));
    EXPECT_EQ(repaints.size(), 2) << "the end of it is painted too";
}

TEST_F(RegisterTable, TakesTheSameValueForNoChange)
{
    registers.force(LW, 60803, 0);
    EXPECT_FALSE(model.isFlashing(1));
}

TEST_F(RegisterTable, ForcesWhatIsTypedIntoIt)
{
    typeValue(1, "65535");
    EXPECT_EQ(registers.word(LW, 60803), 65535);
    typeValue(1, "42");
    EXPECT_EQ(registers.word(LW, 60803), 42);
}

TEST_F(RegisterTable, TakesNoValueThatIsNoWord)
{
    const QModelIndex value = model.index(1, RegisterModel::VALUE);
    for (const QVariant& wrong : {QVariant(-1), QVariant(65536), QVariant(QStringLiteral("x")), QVariant()})
        EXPECT_FALSE(model.setData(value, wrong, Qt::EditRole)) << wrong.toString().toStdString();
    EXPECT_FALSE(model.setData(model.index(1, RegisterModel::ADDRESS), 5, Qt::EditRole));
    EXPECT_FALSE(model.flags(model.index(1, RegisterModel::ADDRESS)) & Qt::ItemIsEditable);
    EXPECT_EQ(registers.word(LW, 60803), 0);
}

TEST_F(RegisterTable, GetsRowsFromItsButtonsAndLosesThem)
{
    registers.force(LW, 100, 7);
    add("LW", 100);
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(cell(2, RegisterModel::VALUE), "7");
    EXPECT_EQ(table->currentIndex().row(), 2);
    QTest::mouseClick(part<QPushButton>("remove"), Qt::LeftButton);
    EXPECT_EQ(model.rowCount(), 2);
    registers.force(LW, 100, 8);
    EXPECT_EQ(model.rowOf(LW, 100), -1);
}

TEST_F(RegisterTable, ShowsARegisterOnce)
{
    add("LW", 60803);
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(table->currentIndex().row(), 1);
    add("D", 60803);
    EXPECT_EQ(model.rowCount(), 3) << "the same address of another type is another register";
}

TEST_F(RegisterTable, NamesRegistersAsTheUserDoes)
{
    const int own = model.watch(LW, 100, QStringLiteral("Line speed"));
    EXPECT_EQ(cell(own, RegisterModel::NAME), "Line speed");
    const int other = model.watch(QStringLiteral("D"), 60803);
    EXPECT_EQ(cell(other, RegisterModel::NAME), "") << "only the internal word is the selection";
}

TEST_F(RegisterTable, TakesNoRegisterThatCannotBe)
{
    add("", 5);
    EXPECT_EQ(part<QLabel>("remark")->text().toStdString(), "A register needs a type, such as LW.");
    EXPECT_TRUE(part<QLabel>("remark")->isVisible());
    EXPECT_EQ(model.watch(QStringLiteral("L,W"), 5), -1);
    EXPECT_EQ(model.watch(LW, -1), -1);
    EXPECT_EQ(model.watch(LW, 65536), -1);
    EXPECT_EQ(model.rowCount(), 2);
    add("LW", 5);
    EXPECT_FALSE(part<QLabel>("remark")->isVisible());
}

TEST_F(RegisterTable, SaysWhenARegisterCannotBeWritten)
{
    add("RO", 5);
    ASSERT_EQ(model.rowCount(), 3);
    typeValue(2, "3");
    EXPECT_EQ(part<QLabel>("remark")->text().toStdString(), "RO 5 cannot be written.");
    EXPECT_EQ(cell(2, RegisterModel::VALUE), "0");
}

TEST_F(RegisterTable, KeepsAFlashOnItsRegisterWhenRowsGo)
{
    add("LW", 5);
    registers.force(LW, 5, 1);
    model.unwatch(0);
    EXPECT_TRUE(model.isFlashing(model.rowOf(LW, 5)));
    model.unwatch(model.rowOf(LW, 5));
    clock.advance(RegisterModel::FLASH_DURATION);
    EXPECT_EQ(model.rowCount(), 1);
    model.unwatch(-1);
    model.unwatch(7);
    EXPECT_EQ(model.rowCount(), 1);
}
