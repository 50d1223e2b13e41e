import QtQuick 2.12
import "."

// The small grey text beside a figure or under a control.
Text {
    color: Theme.dim
    font.pixelSize: Theme.caption
    horizontalAlignment: Text.AlignHCenter
}
