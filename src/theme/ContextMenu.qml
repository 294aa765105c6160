import QtQuick
import QtQuick.Templates as T

// The context menu of a row; contains ContextMenuItem.
T.Menu {
    id: root

    margins: Theme.menuOffset
    padding: Theme.menuPadding
    overlap: 0
    implicitWidth: Math.max(Theme.menuMinimumWidth, contentItem.implicitWidth + leftPadding + rightPadding)
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    delegate: ContextMenuItem {}
    background: MenuSurface {}

    contentItem: ListView {
        objectName: "menuRows"
        implicitHeight: contentHeight
        implicitWidth: {
            let widest = 0;
            for (let row = 0; row < root.count; ++row)
                widest = Math.max(widest, root.itemAt(row).implicitWidth);
            return widest;
        }
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: false
    }

    // The template doesn't name it.
    Binding {
        target: root.contentItem.parent
        property: "Accessible.name"
        value: root.title
    }
}
