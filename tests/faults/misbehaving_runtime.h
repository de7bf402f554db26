// A runtime that misbehaves on command: it answers late, twice, from inside the call or never, hands out properties
// that make no sense, and an interface that refuses.
//
// Part of the test program (link the target misbehaving_runtime): its functions take the place of those in the
// runtime's library, and call them while nothing is switched on. GUI thread, except what any thread may post.
#ifndef MISBEHAVING_RUNTIME_H
#define MISBEHAVING_RUNTIME_H

#include "InterfaceComm.h"
#include "hmi_object.h"

#include <QColor>
#include <QList>
#include <QMap>
#include <QString>

#include <functional>

class HMIBaseItem;
class QEvent;

class MisbehavingRuntime
{
public:
    /// When the keyboard, the reload notification and the request to reload are answered.
    enum Answers
    {
        Usual,  ///< as the desk's runtime does; the keyboard by nobody
        AtOnce, ///< from inside the call
        Twice,  ///< by answerNow(), each two times
        Late,   ///< by answerNow(), when a test thinks fit
        Never
    };

    static MisbehavingRuntime& instance();

    /// Behaves again, and counts from 0.
    void reset();

    /// `item` is whom the answers go to; the keyboard's text is `typed`.
    void setAnswers(Answers answers, HMIBaseItem* item, const QString& typed = QString::fromLatin1("42"));
    void answerNow();

    /// What the property has, whatever stands in the object. An empty key: all of that type.
    void setNumber(const QString& key, int value);
    void setText(const QString& key, const QString& value);
    void setColor(const QString& key, const QColor& value);
    /// No object has children.
    void loseChildren();
    /// Every object is its own child, under any name.
    void makeChildrenTheirParents();

    /// How often what is switched on really came to pass.
    int struck() const { return m_struck; }

    // For the functions that take the runtime's place: true when this runtime has dealt with it.
    bool takesEvent(QEvent* event);
    bool takesNotification();
    bool takesNumber(const char* key, int& value);
    bool takesText(const char* key, QString& value);
    bool takesColor(const char* key, QColor& value);
    bool takesChild(object* parent, object*& child);

private:
    MisbehavingRuntime() {}
    bool answer(const std::function<void()>& what);
    template <typename Value> bool takes(const QMap<QString, Value>& values, const char* key, Value& value);

    enum Children
    {
        ThoseThereAre,
        None,
        Itself
    };

    Answers m_answers = Usual;
    HMIBaseItem* m_item = nullptr;
    QString m_typed;
    QList<std::function<void()> > m_waiting;
    bool m_inside = false;
    QMap<QString, int> m_numbers;
    QMap<QString, QString> m_texts;
    QMap<QString, QColor> m_colors;
    Children m_children = ThoseThereAre;
    int m_struck = 0;
};

/// An interface that refuses every read and write, leaves rubbish in what it was to fill, and knows no address.
class RefusingComm : public InterfaceComm
{
public:
    bool readWords(int station, int address, int count, int* values) override;
    bool writeWords(const QString& deviceName, const QString& registerType, int address, int subAddress, int count,
                    const int* values) override;
    LinkValue linkValue(const QString& deviceName) override;
    void formatMonitorAddress(const QString& deviceName, const QString& registerType, int address, int subAddress,
                              int count, QStringList& addresses) override;

    bool fills = false; ///< a read says that it worked
    int rubbish = -2147483647 - 1;
    int calls = 0;
};

#endif
