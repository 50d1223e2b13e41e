import QtQuick 2.12
import "../style"

Text {
    color: Theme.dim
    font.pixelSize: Theme.small
    verticalAlignment: Text.AlignVCenter
    elide: Text.ElideRight
}
