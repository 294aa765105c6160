pragma Singleton

import QtQuick

import Ostrel.Theme

// The application's one look: every colour, face and length that a view uses has its name here.
QtObject {
    id: root

    // Set by the application from the desktop's setting: nothing moves but what the hand moves.
    property bool reducedMotion: false

    // Palette
    readonly property color background: Qt.rgba(1.0, 0.94, 0.90, 1.0)
    readonly property color surface: Qt.rgba(1.0, 0.97, 0.95, 1.0)
    readonly property color accent: Qt.rgba(0.16, 0.20, 0.52, 1.0)
    readonly property color accentPressed: Qt.rgba(0.12, 0.16, 0.44, 1.0)
    readonly property color ink: Qt.rgba(0.12, 0.12, 0.22, 1.0)
    readonly property color textPrimary: ink
    readonly property color textSecondary: Qt.alpha(ink, 0.50)
    readonly property color textTertiary: Qt.alpha(ink, 0.25)
    readonly property color hairline: Qt.alpha(accent, 0.06)
    readonly property color accentSoft: Qt.alpha(accent, 0.70)
    readonly property color statusUp: Qt.rgba(0.22, 0.75, 0.50, 1.0)
    readonly property color statusDown: Qt.rgba(0.92, 0.34, 0.30, 1.0)
    readonly property color warning: Qt.rgba(0.96, 0.56, 0.30, 1.0)
    readonly property color statusMuted: Qt.alpha(ink, 0.25)

    // What stands on the accent, and the bird's yellow on the empty page
    readonly property color accentText: "white"
    readonly property color emblem: Qt.rgba(1.00, 0.84, 0.04, 1.0)
    readonly property color emblemPlate: Qt.alpha(accent, 0.06)
    readonly property color siteIconPlate: Qt.alpha(accent, 0.08)
    readonly property color siteIconLetter: Qt.alpha(accent, 0.50)
    readonly property color none: "transparent"

    // Edges and dividers
    readonly property color columnLine: Qt.alpha(accent, 0.08)
    readonly property color badgeEdge: Qt.alpha(accent, 0.08)
    readonly property color menuEdge: Qt.alpha(accent, 0.14)
    readonly property color sheetEdge: Qt.alpha(accent, 0.10)
    readonly property color sheetScrim: Qt.alpha(ink, 0.24)
    readonly property color sheetGroup: Qt.alpha(ink, 0.03)
    readonly property color focusEdge: Qt.alpha(accent, 0.60)
    readonly property color placeholder: Qt.alpha(ink, 0.35)
    readonly property color textSelection: Qt.alpha(accent, 0.20)

    // Interaction
    readonly property color rowHover: Qt.alpha(accent, 0.04)
    readonly property color rowPressed: Qt.alpha(accent, 0.08)
    readonly property color rowSelectedEdge: Qt.alpha(accent, 0.14)
    readonly property color rowSelectedEdgeInactive: Qt.alpha(accent, 0.06)
    readonly property color addHover: Qt.alpha(accent, 0.06)
    readonly property color addPressed: Qt.alpha(accent, 0.10)
    readonly property color suggestionFill: Qt.alpha(accent, 0.06)
    readonly property color suggestionHover: Qt.alpha(accent, 0.10)
    readonly property color suggestionPressed: Qt.alpha(accent, 0.14)
    readonly property color iconHover: Qt.alpha(ink, 0.06)
    readonly property color iconPressed: Qt.alpha(ink, 0.10)
    readonly property color cardHover: Qt.tint(surface, Qt.rgba(1, 1, 1, 0.5))
    readonly property color cardHoverEdge: Qt.alpha(accent, 0.20)
    readonly property color cardPressed: Qt.tint(surface, Qt.alpha(accent, 0.04))
    readonly property color quietFill: Qt.alpha(ink, 0.03)
    readonly property color quietEdge: Qt.alpha(ink, 0.08)
    readonly property color quietHover: Qt.alpha(ink, 0.06)
    readonly property color quietPressed: Qt.alpha(ink, 0.10)
    readonly property color pillQuiet: Qt.alpha(ink, 0.03)
    readonly property color pillQuietPressed: Qt.alpha(ink, 0.06)
    readonly property color confirmInvalid: Qt.alpha(accent, 0.30)
    readonly property color fieldEdge: Qt.alpha(accent, 0.14)
    readonly property color fieldEdgeHover: Qt.alpha(accent, 0.28)
    readonly property color segmentTrack: Qt.alpha(ink, 0.06)
    readonly property color segmentEdge: Qt.alpha(accent, 0.08)
    readonly property color toggleOff: Qt.alpha(ink, 0.14)
    readonly property color menuHover: Qt.alpha(accent, 0.08)
    readonly property color menuPressed: Qt.alpha(accent, 0.14)
    readonly property color scrollBar: Qt.alpha(ink, 0.18)
    readonly property color scrollBarHover: Qt.alpha(ink, 0.30)
    readonly property color pendingTrack: Qt.alpha(ink, 0.12)
    readonly property color pendingArc: Qt.alpha(ink, 0.50)
    readonly property real disabledOpacity: 0.4

    // Chart and strip
    readonly property color chartLine: Qt.alpha(accent, 0.85)
    readonly property color chartAreaTop: Qt.alpha(accent, 0.22)
    readonly property color chartAreaBottom: Qt.alpha(accent, 0.02)
    readonly property color chartGrid: Qt.alpha(statusMuted, statusMuted.a * 0.4)
    readonly property color stripEmpty: Qt.alpha(ink, 0.04)

    // Faces by role
    readonly property font displayLarge: ThemeFonts.face(700, 32, 0)
    readonly property font displayMedium: ThemeFonts.face(700, 22)
    readonly property font headline: ThemeFonts.face(600, 14)
    readonly property font bodyMedium: ThemeFonts.face(500, 14)
    readonly property font body: ThemeFonts.face(400, 13)
    readonly property font caption: ThemeFonts.face(500, 12)
    readonly property font footnote: ThemeFonts.face(400, 11)
    readonly property font label: ThemeFonts.face(500, 10)
    readonly property font labelSmall: ThemeFonts.face(600, 10)
    readonly property font mono: ThemeFonts.mono(500, 12)
    readonly property font monoSmall: ThemeFonts.mono(400, 11)

    // Faces by weight and size, where no role has them
    readonly property font bold24: ThemeFonts.face(700, 24)
    readonly property font bold11: ThemeFonts.face(700, 11, 1.5)
    readonly property font bold9: ThemeFonts.face(700, 9, 0.5)
    readonly property font demiBold15: ThemeFonts.face(600, 15)
    readonly property font demiBold13: ThemeFonts.face(600, 13)
    readonly property font demiBold12: ThemeFonts.face(600, 12)
    readonly property font demiBold11: ThemeFonts.face(600, 11)
    readonly property font medium11: ThemeFonts.face(500, 11)
    readonly property font regular14: ThemeFonts.face(400, 14)
    readonly property font regular12: ThemeFonts.face(400, 12)
    readonly property font regular10: ThemeFonts.face(400, 10)
    readonly property font regular9: ThemeFonts.face(400, 9)
    readonly property font sectionLabel: ThemeFonts.face(600, 10, 1.2)
    readonly property font statTitle: ThemeFonts.face(500, 10, 0.3)
    readonly property font system13: ThemeFonts.system(13)
    readonly property font system11: ThemeFonts.system(11)

    // Layout
    readonly property real cornerRadius: 12
    readonly property real cornerRadiusSmall: 8
    readonly property real cardPadding: 16
    readonly property real sectionSpacing: 24
    readonly property real spacing: 12
    readonly property real spacingLarge: 24
    readonly property real spacingSmall: 8
    readonly property real tightSpacing: 4
    readonly property real pageMargin: 24
    readonly property real hairlineWidth: 1
    readonly property real contentMaximum: 960
    readonly property real dotSize: 8
    readonly property real dotSizeSmall: 6
    readonly property real dotRing: 1.5
    readonly property real rowHeight: 48
    readonly property real siteIconRadiusShare: 0.22
    readonly property real siteIconLetterShare: 0.45

    // Window
    readonly property real windowWidth: 960
    readonly property real windowHeight: 640
    readonly property real windowMinimumWidth: 800
    readonly property real windowMinimumHeight: 520
    readonly property real sidebarWidth: 290
    readonly property real sidebarMinimum: 260
    readonly property real sidebarMaximum: 380
    readonly property real sidebarGivesWayBelow: 860
    readonly property real columnGrip: 7
    readonly property real columnStep: 10

    // Sidebar
    readonly property real rowSpacing: 2
    readonly property real rowMargin: 8
    readonly property real rowInset: 10
    readonly property real rowGap: 10
    readonly property real rowIconSize: 24
    readonly property real rowTextGap: 1
    readonly property real rowFigureGap: 2
    readonly property real rowStateHeight: 16
    readonly property real rowDotOverhang: 2
    readonly property real rowDotMargin: 2
    readonly property real selectionBarWidth: 3
    readonly property real selectionBarHeight: 20
    readonly property real selectionBarRadius: 1.5
    readonly property real selectionBarOffset: 3
    readonly property real homeRowTop: 12
    readonly property real homeRowHeight: 40
    readonly property real homeDividerInset: 18
    readonly property real footerHeight: 49
    readonly property real addButtonHeight: 32
    readonly property real addButtonPadding: 10
    readonly property real addButtonGap: 8

    // Dashboard
    readonly property real bannerHeight: 71
    readonly property real bannerGap: 14
    readonly property real bannerTextGap: 3
    readonly property real bannerFillOpacity: 0.06
    readonly property real bannerEdgeOpacity: 0.10
    readonly property real monitorCardHeight: 84
    readonly property real monitorCardGap: 8
    readonly property real monitorCardIconSize: 20
    readonly property real emblemPlateSize: 120
    readonly property real emblemSystemSize: 48
    readonly property real emptyTextGap: 8
    readonly property real pillLabelGap: 6

    // Detail page
    readonly property real headerHeight: 44
    readonly property real headerIconSize: 44
    readonly property real headerGap: 14
    readonly property real headerTextGap: 1
    readonly property real headerButtonTop: 6
    readonly property real headerButtonGap: 4
    readonly property real statusRowGap: 16
    readonly property real badgeGap: 10
    readonly property real lastCheckedGap: 8
    readonly property real statusPillPadding: 12
    readonly property real statusPillVerticalPadding: 6
    readonly property real statusPillGap: 6
    readonly property real statusPillFillOpacity: 0.10
    readonly property real statCardHeight: 98
    readonly property real uptimeCardHeight: 106
    readonly property real stripHeight: 26
    readonly property real stripBarGap: 1.5
    readonly property real stripBarRadius: 2
    readonly property real stripRadius: 5
    readonly property real stripGap: 12
    readonly property real stripFootGap: 6
    readonly property real chartCardHeight: 242
    readonly property real chartHeight: 180
    readonly property real chartGap: 12
    readonly property real chartLineWidth: 2.5
    readonly property real chartPointSize: 4.5
    readonly property real chartPlaceholderGap: 10
    readonly property real checkRowHeight: 26
    readonly property real checkTimeWidth: 68
    readonly property real checkCodeWidth: 32
    readonly property real checkHeadGap: 6
    readonly property real checkDotGap: 10

    // Sheet and settings
    readonly property real sheetWidth: 440
    readonly property real sheetRadius: 16
    readonly property real sheetMargin: 24
    readonly property real sheetTop: 20
    readonly property real sheetBottom: 20
    readonly property real sheetGap: 16
    readonly property real sheetLabelGap: 8
    readonly property real sheetWindowMargin: 48
    readonly property real tileGap: 8
    readonly property real chipGap: 6
    readonly property real portFieldWidth: 104
    readonly property real thresholdFieldWidth: 120
    readonly property real timeoutFieldWidth: 60
    readonly property real keywordModeWidth: 132
    readonly property real suggestionHeight: 32
    readonly property real advancedGap: 6
    readonly property real advancedRowHeight: 42
    readonly property real footerGap: 8
    readonly property real settingsWidth: 460
    readonly property real settingsHeight: 386
    readonly property real settingsTitleInset: 16
    readonly property real settingsTitleGap: 8
    readonly property real settingsRowHeight: 46
    readonly property real settingsButtonRowHeight: 52
    readonly property real settingsTallRowHeight: 60
    readonly property real settingsTextGap: 3
    readonly property real advancedButtonHeight: 20
    readonly property real advancedInset: 14
    readonly property real advancedFieldHeight: 28

    // Controls
    readonly property real focusRingWidth: 2
    readonly property real focusRingGap: 2
    readonly property real iconButtonSize: 32
    readonly property real quietButtonHeight: 28
    readonly property real quietButtonPadding: 14
    readonly property real textButtonPadding: 12
    readonly property real pillHeight: 44
    readonly property real pillPadding: 24
    readonly property real confirmHeight: 34
    readonly property real confirmPadding: 18
    readonly property real tileHeight: 32
    readonly property real tilePadding: 14
    readonly property real tileSymbolGap: 6
    readonly property real controlGap: 8
    readonly property real chipHeight: 26
    readonly property real chipPadding: 12
    readonly property real fieldHeight: 34
    readonly property real addressFieldHeight: 38
    readonly property real fieldPadding: 12
    readonly property real caretWidth: 1.5
    readonly property real pickerHeight: 34
    readonly property real segmentHeight: 28
    readonly property real segmentInset: 2
    readonly property real segmentPadding: 14
    readonly property real segmentRadius: 6
    readonly property real toggleWidth: 36
    readonly property real toggleHeight: 20
    readonly property real toggleKnob: 16
    readonly property real menuRadius: 9
    readonly property real menuPadding: 4
    readonly property real menuRowHeight: 28
    readonly property real menuRowPadding: 8
    readonly property real menuRowRadius: 5
    readonly property real menuRowGap: 9
    readonly property real menuCheckWidth: 20
    readonly property real menuMinimumWidth: 150
    readonly property real menuOffset: 4
    readonly property real helpTextRadius: 6
    readonly property real helpTextPadding: 8
    readonly property real helpTextVerticalPadding: 5
    readonly property real helpTextGap: 6
    readonly property real helpTextMaximum: 320
    readonly property real scrollBarWidth: 6
    readonly property real scrollBarWidthHover: 8
    readonly property real scrollBarMargin: 2
    readonly property real scrollBarMinimum: 24
    readonly property real badgeHeight: 26
    readonly property real badgePaddingLeading: 8
    readonly property real badgePaddingTrailing: 10
    readonly property real badgeSymbolGap: 5
    readonly property real statBarWidth: 28
    readonly property real statBarHeight: 3
    readonly property real statBarRadius: 1.5
    readonly property real statBarGap: 14
    readonly property real statValueGap: 6
    readonly property real statUnitGap: 3
    readonly property real pendingRingSize: 14
    readonly property real pendingRingStroke: 2

    // Motion, in milliseconds
    readonly property int quickMotion: reducedMotion ? 0 : 150
    readonly property int deleteMotion: reducedMotion ? 0 : 200
    readonly property int sheetMotion: reducedMotion ? 0 : 150
    readonly property int helpTextDelay: 600
    readonly property int scrollBarLinger: 1000
    readonly property int haloMotion: 1500
    readonly property int pendingTurn: 1000
    readonly property var easeInOut: [0.42, 0.0, 0.58, 1.0, 1.0, 1.0]

    // Avenir Next at another weight (400 to 700) and size.
    function face(weight: int, pixelSize: real): font {
        return ThemeFonts.face(weight, pixelSize);
    }

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

    // A colour at a share of its own opacity.
    function faded(base: color, share: real): color {
        return Qt.alpha(base, base.a * share);
    }

    // What shows where a colour lies over an opaque one.
    function over(top: color, ground: color): color {
        return Qt.tint(ground, top);
    }
}
