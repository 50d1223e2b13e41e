import QtQuick 2.12
import "."

// A small grey text for a figure or a control.
Text {
    color: Theme.dim
    font.pixelSize: Theme.caption
    horizontalAlignment: Text.AlignHCenter
}
