#pragma once

#include "MonitorListModel.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <chrono>

namespace ostrel {

/// Finds monitors by the beginning of their shown name, which the user types while the list has the
/// keyboard. Main thread.
class TypeAhead : public QObject
{
    Q_OBJECT
    QML_ELEMENT

public:
    /// What is typed after a longer pause begins another name.
    static constexpr std::chrono::seconds pause{1};

    using QObject::QObject;

    /// Whether a key that makes this text is part of a name: any character can be, but no name
    /// begins with a space.
    Q_INVOKABLE bool takes(const QString &text) const;
    /// The row that @p text leads to from the selected @p row, which stays if no name begins so. A
    /// name that is typed on may be the selected one; a new or a repeated letter leads to the next
    /// one, and after the last one to the first.
    Q_INVOKABLE int type(const QString &text, const ostrel::MonitorListModel *monitors, int row);

private:
    [[nodiscard]] bool isTyping() const;
    void append(const QString &text);

    QDeadlineTimer m_end;
    QString m_typed;
    QString m_letter;           ///< The first one that was typed.
    bool m_isRepeating = false; ///< Only that one was typed.
};

} // namespace ostrel
