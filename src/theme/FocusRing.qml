pragma ComponentBehavior: Bound

import QtQuick

import Ostrel.Theme

// Shows which control has the keyboard focus, and says whole what is cut off in it. Set the control
// as parent, and bind `visible`.
EdgedBox {
    id: root

    readonly property real focusRingGap: 2

    // The corner radius of the control.
    property real controlRadius: Theme.cornerRadiusSmall
    // Rows and fields have no space around them.
    property bool isInside: false
    readonly property string cutOff: visible && parent ? cutOffIn(parent).join("\n") : ""
    // Null until something is cut off for the first time.
    property FocusHelp help: null
    readonly property real distance: isInside ? 0 : root.focusRingGap + Theme.focusRingWidth

    // The visible texts in `item` that don't fit.
    function cutOffIn(item: Item): var {
        if (!item.visible || item === root)
            return [];
        const text = item as Text;
        if (text)
            return text.truncated ? [text.text] : [];
        let texts = [];
        for (let place = 0; place < item.children.length; ++place)
            texts = texts.concat(cutOffIn(item.children[place]));
        return texts;
    }

    anchors.fill: parent
    anchors.margins: -distance
    radius: controlRadius + distance
    edge: Theme.focusEdge
    edgeWidth: Theme.focusRingWidth
    onCutOffChanged: {
        if (cutOff !== "" && !help)
            help = helpComponent.createObject(root) as FocusHelp;
    }

    Component {
        id: helpComponent

        FocusHelp {
            control: root.parent
            text: root.cutOff
        }
    }
}
