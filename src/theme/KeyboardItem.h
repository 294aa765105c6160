#pragma once

#include <QQuickItem>

namespace ostrel {

/// A focusable item whose accessible role can be chosen: for assistive tools, a template control's
/// role is fixed, whatever `Accessible.role` says. Like a control it knows how it got the focus.
class KeyboardItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// How it last got the focus, not counting the focus's return from a popup or another window.
    Q_PROPERTY(Qt::FocusReason focusReason READ focusReason WRITE setFocusReason NOTIFY
                   focusReasonChanged FINAL)
    /// Whether it has the focus, and this must be shown.
    Q_PROPERTY(bool visualFocus READ visualFocus NOTIFY visualFocusChanged FINAL)

public:
    explicit KeyboardItem(QQuickItem *parent = nullptr);

    [[nodiscard]] Qt::FocusReason focusReason() const { return m_focusReason; }
    void setFocusReason(Qt::FocusReason reason);
    [[nodiscard]] bool visualFocus() const;

Q_SIGNALS:
    void focusReasonChanged();
    void visualFocusChanged();
    /// A key has given it the focus, which hasn't just returned from a popup or another window.
    void reachedByKey();

protected:
    void focusInEvent(QFocusEvent *event) override;

private:
    Qt::FocusReason m_focusReason = Qt::OtherFocusReason;
};

} // namespace ostrel
