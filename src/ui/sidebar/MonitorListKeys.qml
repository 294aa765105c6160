import QtQuick

import Ostrel

// The keys of the list of monitors: they move the selection, find a monitor by its name, open its
// menu and delete it. The list's `Keys` must forward to this item.
Item {
    id: root

    required property MonitorListModel monitors
    required property MonitorSelection selection

    signal walked(row: int)
    signal menuRequested
    signal deleteRequested

    function isTyped(event: KeyEvent): bool {
        const commands = Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier;
        return !(event.modifiers & commands) && typeAhead.takes(event.text);
    }

    Keys.onUpPressed: walked(selection.row - 1)
    Keys.onDownPressed: walked(selection.row + 1)
    Keys.onEscapePressed: walked(-1)
    Keys.onMenuPressed: menuRequested()
    // A held key deletes one monitor, not all.
    Keys.onDeletePressed: event => {
        if (!event.isAutoRepeat)
            deleteRequested();
    }
    Keys.onPressed: event => {
        event.accepted = true;
        if (event.key === Qt.Key_Home)
            walked(0);
        else if (event.key === Qt.Key_End)
            walked(monitors.rowCount() - 1);
        else if (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)
            menuRequested();
        else if (isTyped(event))
            walked(typeAhead.type(event.text, monitors, selection.row));
        else
            event.accepted = false;
    }

    TypeAhead {
        id: typeAhead
    }
}
