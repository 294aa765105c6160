pragma ComponentBehavior: Bound

import QtQuick

import Ostrel.Theme

// Dots of every status and size.
GallerySection {
    title: "STATUS DOT"

    GallerySample {
        caption: "up"

        StatusDot {
            status: MonitorStatus.Up
            size: 24
        }
    }

    GallerySample {
        caption: "down 0 s"

        StatusDot {
            status: MonitorStatus.Down
            size: 24
        }
    }

    GallerySample {
        caption: "0.75 s"

        Item {
            width: 2.6 * 24
            height: width

            PulsingHalo {
                x: (parent.width - width) / 2
                y: x
                restDiameter: 2.4 * 24
                pulse: false
                swell: 0.5
            }

            Disc {
                anchors.fill: parent
                diameter: 24
                color: Theme.statusDown
            }
        }
    }

    GallerySample {
        caption: "paused, pending"

        StatusDot {
            status: MonitorStatus.Pending
            size: 24
        }
    }

    Repeater {
        model: [6, 8]

        GallerySample {
            id: sample

            required property int modelData

            caption: "size " + modelData

            Row {
                spacing: Theme.tightSpacing

                Repeater {
                    model: [MonitorStatus.Up, MonitorStatus.Down, MonitorStatus.Paused]

                    StatusDot {
                        required property int modelData

                        status: modelData
                        size: sample.modelData
                    }
                }
            }
        }
    }
}
