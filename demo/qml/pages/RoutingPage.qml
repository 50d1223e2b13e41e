import QtQuick 2.12
import "../controls"
import "../device/pads.js" as Pads
import "../settings"
import "../style"

// The output routing of each source. The numbers are the engine's; their meaning is not known.
Item {
    id: page
    property int pad: 1
    property int zone: 0

    Grid {
        x: Theme.margin
        y: Theme.margin
        columns: 3
        spacing: Theme.gap
        readonly property real cardWidth: (page.width - 2 * Theme.margin - 2 * spacing) / 3
        readonly property real cardHeight: (page.height - 2 * Theme.margin - spacing) / 2

        Repeater {
            model: Settings.routing.all
            RoutingCard {
                width: parent.cardWidth
                height: parent.cardHeight
                routing: modelData
            }
        }
        RoutingCard {
            width: parent.cardWidth
            height: parent.cardHeight
            head: 2 * Theme.touch + Theme.tight
            routing: Settings.pad(Pads.noteOf(page.pad, page.zone)).multiFxDirect
            Picker {
                objectName: "routedPad"
                width: parent.width
                text: Pads.all[page.pad].name
                onMoved: {
                    page.zone = 0;
                    page.pad = (page.pad + direction + Pads.all.length) % Pads.all.length;
                }
            }
            SectionTabs {
                y: Theme.touch + Theme.tight
                width: parent.width
                names: Pads.zoneNames(page.pad)
                current: page.zone
                onChosen: page.zone = index
            }
        }
    }
}
