#pragma once

#include <QQuickItem>

namespace ostrel {

/// An item that can have the keyboard and whose role is free to choose: that of a template control
/// is fixed to assistive tools, whatever `Accessible.role` says. Like a control it knows how the
/// keyboard came to it.
class KeyboardItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// How the keyboard came to it last; its way back from a popup or another window doesn't count.
    Q_PROPERTY(Qt::FocusReason focusReason READ focusReason WRITE setFocusReason NOTIFY
                   focusReasonChanged FINAL)
    /// Whether it has the keyboard, and that's to be shown.
    Q_PROPERTY(bool visualFocus READ visualFocus NOTIFY visualFocusChanged FINAL)

public:
    explicit KeyboardItem(QQuickItem *parent = nullptr);

    [[nodiscard]] Qt::FocusReason focusReason() const { return m_focusReason; }
    void setFocusReason(Qt::FocusReason reason);
    [[nodiscard]] bool visualFocus() const;

Q_SIGNALS:
    void focusReasonChanged();
    void visualFocusChanged();

protected:
    void focusInEvent(QFocusEvent *event) override;

private:
    Qt::FocusReason m_focusReason = Qt::OtherFocusReason;
};

} // namespace ostrel
