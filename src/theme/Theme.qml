pragma Singleton

import QtQuick

import Ostrel.Theme

// The application's look: the colours, fonts and lengths that several views share. Those of a
// single view are in that view.
QtObject {
    id: root

    // Set by the application from the desktop's setting: nothing moves unless the user moves it.
    property bool reducedMotion: false
    // Set by the application from the desktop's setting: faint texts and edges are easy to see.
    property bool highContrast: false

    // Palette
    readonly property color background: Qt.rgba(1.0, 0.94, 0.90, 1.0)
    readonly property color surface: Qt.rgba(1.0, 0.97, 0.95, 1.0)
    readonly property color accent: Qt.rgba(0.16, 0.20, 0.52, 1.0)
    readonly property color accentPressed: Qt.rgba(0.12, 0.16, 0.44, 1.0)
    readonly property color ink: Qt.rgba(0.12, 0.12, 0.22, 1.0)
    readonly property color textPrimary: ink
    readonly property color textSecondary: faint(ink, 0.50)
    readonly property color textTertiary: faint(ink, 0.25)
    readonly property color hairline: faint(accent, 0.06)
    readonly property color statusUp: highContrast ? Qt.rgba(0.04, 0.40, 0.24, 1.0) : Qt.rgba(0.22, 0.75, 0.50, 1.0)
    readonly property color statusDown: highContrast ? Qt.rgba(0.70, 0.12, 0.10, 1.0) : ThemeColors.statusDown
    readonly property color warning: highContrast ? Qt.rgba(0.58, 0.27, 0.02, 1.0) : Qt.rgba(0.96, 0.56, 0.30, 1.0)
    readonly property color statusMuted: faint(ink, 0.25)

    readonly property color accentText: "white" // On the accent
    readonly property color none: "transparent"
    readonly property color focusEdge: faint(accent, 0.60)
    readonly property color textSelection: Qt.alpha(accent, 0.20)
    readonly property real disabledOpacity: highContrast ? 0.7 : 0.4

    // Fonts by role
    readonly property font headline: ThemeFonts.face(600, 14)
    readonly property font body: ThemeFonts.face(400, 13)
    readonly property font caption: ThemeFonts.face(500, 12)
    readonly property font footnote: ThemeFonts.face(400, 11)
    readonly property font label: ThemeFonts.face(500, 10)
    readonly property font mono: ThemeFonts.mono(500, 12)

    // Fonts by weight and size
    readonly property font demiBold15: ThemeFonts.face(600, 15)
    readonly property font demiBold13: ThemeFonts.face(600, 13)
    readonly property font demiBold12: ThemeFonts.face(600, 12)
    readonly property font demiBold11: ThemeFonts.face(600, 11)
    readonly property font medium11: ThemeFonts.face(500, 11)
    readonly property font regular12: ThemeFonts.face(400, 12)
    readonly property font regular10: ThemeFonts.face(400, 10)
    readonly property font regular9: ThemeFonts.face(400, 9)
    readonly property font sectionLabel: ThemeFonts.face(600, 10, 1.2)
    readonly property font system13: ThemeFonts.system(13)

    // Layout
    readonly property real cornerRadius: 12
    readonly property real cornerRadiusSmall: 8
    readonly property real cardPadding: 16
    readonly property real sectionSpacing: 24
    readonly property real spacing: 12
    readonly property real spacingSmall: 8
    readonly property real tightSpacing: 4
    readonly property real pageMargin: 24
    readonly property real hairlineWidth: 1
    readonly property real contentMaximum: 960
    readonly property real dotSizeSmall: 6

    // Window
    readonly property real windowWidth: 960
    readonly property real windowHeight: 640
    readonly property real windowMinimumWidth: 800
    readonly property real windowMinimumHeight: 520
    readonly property real sidebarWidth: 290
    readonly property real sidebarMinimum: 260

    // Sidebar
    readonly property real rowMargin: 8
    readonly property real rowInset: 10
    readonly property real rowGap: 10
    readonly property real rowIconSize: 24

    // Dashboard
    readonly property real bannerHeight: 71
    readonly property real monitorCardHeight: 84

    // Detail page
    readonly property real headerHeight: 44
    readonly property real headerIconSize: 44
    readonly property real badgeGap: 10

    // Sheet and settings
    readonly property real sheetLabelGap: 8
    readonly property real thresholdFieldWidth: 120
    readonly property real keywordModeWidth: 132
    readonly property real settingsWidth: 460
    readonly property real settingsHeight: 386

    // Controls
    readonly property real focusRingWidth: 2
    readonly property real iconButtonSize: 32
    readonly property real confirmHeight: 34
    readonly property real controlGap: 8
    readonly property real addressFieldHeight: 38
    readonly property real fieldPadding: 12
    readonly property real segmentHeight: 28
    readonly property real segmentInset: 2
    readonly property real menuPadding: 4
    readonly property real menuRowHeight: 28
    readonly property real menuRowPadding: 8
    readonly property real menuMinimumWidth: 150
    readonly property real menuOffset: 4
    readonly property real statUnitGap: 3
    readonly property real pendingRingSize: 14

    // Motion, in milliseconds
    readonly property int quickMotion: reducedMotion ? 0 : 150

    // The colour of a status, for dots, words and symbols.
    function statusColor(status: int): color {
        switch (status) {
        case MonitorStatus.Up:
            return root.statusUp;
        case MonitorStatus.Down:
            return root.statusDown;
        default:
            return root.statusMuted;
        }
    }

    // The ink or the accent as the colour of a text, an edge or a grid that stays behind others. With
    // high contrast, its ratio to every ground is 4.5 at least, as WCAG 2.2 asks of texts (1.4.3).
    function faint(base: color, opacity: real): color {
        return Qt.alpha(base, highContrast ? Math.max(opacity, 0.78) : opacity);
    }

    // Where a part begins that is in the middle of a whole: on a whole pixel, so that it is sharp.
    function centred(whole: real, part: real): real {
        return Math.round((whole - part) / 2);
    }

    // A colour at a fraction of its own opacity.
    function faded(base: color, share: real): color {
        return Qt.alpha(base, base.a * share);
    }

    // The resulting colour if one colour is drawn over an opaque one.
    function over(top: color, ground: color): color {
        return Qt.tint(ground, top);
    }
}
