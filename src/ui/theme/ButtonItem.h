#pragma once

#include "KeyboardItem.h"

#include <QString>

namespace ostrel {

/// What a button is apart from its look: it is pressed by the pointer, by Space, Return and Enter,
/// and by an assistive tool, and it lays its contents out over its background. A click doesn't take
/// the keyboard.
///
/// Unlike the template control of Qt Quick, whose module would come with the first view, it costs
/// the start next to nothing, and its role for assistive tools is free to choose.
class ButtonItem : public ostrel::KeyboardItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text MEMBER m_text NOTIFY textChanged FINAL)
    /// Whether a press changes `checked`.
    Q_PROPERTY(bool checkable MEMBER m_isCheckable NOTIFY checkableChanged FINAL)
    Q_PROPERTY(bool checked MEMBER m_isChecked NOTIFY checkedChanged FINAL)
    /// Whether letting go now would press it. Set, it is shown so until the next press.
    Q_PROPERTY(bool down READ isDown WRITE setDown NOTIFY downChanged FINAL)
    Q_PROPERTY(bool hovered READ isHovered NOTIFY hoveredChanged FINAL)
    /// As large as the button. This and the contents live as long as the button does.
    Q_PROPERTY(QQuickItem *background MEMBER m_background NOTIFY backgroundChanged FINAL)
    /// As large as the paddings leave it.
    Q_PROPERTY(QQuickItem *contentItem MEMBER m_contentItem NOTIFY contentItemChanged FINAL)
    /// On the left and on the right.
    Q_PROPERTY(qreal horizontalPadding MEMBER m_horizontalPadding NOTIFY paddingChanged FINAL)
    /// Above and below.
    Q_PROPERTY(qreal verticalPadding MEMBER m_verticalPadding NOTIFY paddingChanged FINAL)

public:
    explicit ButtonItem(QQuickItem *parent = nullptr);

    [[nodiscard]] bool isDown() const { return m_isDown; }
    void setDown(bool isDown);
    [[nodiscard]] bool isHovered() const { return m_isHovered; }

    /// What an assistive tool presses, found by this name.
    Q_INVOKABLE void accessiblePressAction();

Q_SIGNALS:
    void clicked();
    void textChanged();
    void checkableChanged();
    void checkedChanged();
    void downChanged();
    void hoveredChanged();
    void backgroundChanged();
    void contentItemChanged();
    void paddingChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;

private:
    void press();
    void letGo();
    void setHovered(bool isHovered);
    void layOut();

    QString m_text;
    QQuickItem *m_background = nullptr;
    QQuickItem *m_contentItem = nullptr;
    qreal m_horizontalPadding = 0;
    qreal m_verticalPadding = 0;
    bool m_isCheckable = false;
    bool m_isChecked = false;
    bool m_isDown = false;
    bool m_isHovered = false;
};

} // namespace ostrel
