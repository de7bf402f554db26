// Sending one recipe to its controllers. The loader of a plug-in gives the values, RegisterImage makes words of them,
// the runtime writes them. Everything is looked at before the first word is written, and all is written in one step,
// the notification address last; so a recipe arrives whole or not at all. GUI thread only.
//
// How the runtime reads the address of an item: field 0 is the device, 1 the station, 2 the number of the link, 3 the
// register type, 4 the register's number, 5 is not used.
#ifndef RECIPE_TRANSFER_H
#define RECIPE_TRANSFER_H

#include "plugin_library.h"
#include "recipe_records.h"
#include "register_bank.h"
#include "register_image.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QList>
#include <QString>

class RecipeTransfer
{
    Q_DECLARE_TR_FUNCTIONS(RecipeTransfer)
public:
    /// What is written for one item, or for the notification address.
    struct Value
    {
        QString name; ///< what operators call it
        QString text; ///< as the loader gave it
        int linkNumber = -1;
        RegisterWrite write;
        QVector<quint16> before; ///< what the registers held
    };

    /// Registers are not owned and must outlive this.
    explicit RecipeTransfer(RegisterBank& registers) : m_registers(registers) {}

    /// Takes the recipe that the selection registers name, from `library`, and checks all of it. False: nothing can be
    /// sent, and the message says why. Null: there is no library with a loader.
    bool prepare(const PluginLibrary* library);
    /// In place of `prepare` while the recipe file is rewritten: what could be read would be half old, half new.
    void refuseWhileBusy();
    /// Writes what was prepared. False: a link went down since; nothing was written.
    bool send();

    /// In the order of writing.
    const QList<Value>& values() const { return m_values; }
    /// What to tell the operator, in the language in use.
    const QString& message() const { return m_message; }
    /// The same for programs: "result" is "sent" or "refused", with "reason" a word that stays the same in all
    /// languages; "values" and "notification" with old and new words only where it was sent.
    QJsonObject description() const;

private:
    bool fail(const char* reason, const QString& sentence);
    bool findSelection();
    bool load(const PluginLibrary& library);
    bool encode();
    bool encodeItem(int row, RegisterImage& image);
    bool failToEncode(RegisterImage::Result result, const QString& name, const RegisterValue& value);
    bool addWrites(const RegisterImage& image);
    bool addWrite(Value value, const QString& device, const recipeRegAddr_t& place, const QString& number);
    bool fitsTogether();
    QString nameOf(const recipeItemInfo_t& item) const;

    RegisterBank& m_registers;
    int m_group = -1;
    int m_recipe = -1;
    recipeTableInfo_t m_info;
    QString m_title;
    QList<Value> m_values;
    QString m_reason; // empty: not refused
    QString m_message;
};

#endif
