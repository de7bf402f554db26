// Half a plug-in: it names its item type, but cannot create an item.
#include <QString>

extern "C" Q_DECL_EXPORT QString getItemName()
{
    return QString::fromLatin1("Half");
}
