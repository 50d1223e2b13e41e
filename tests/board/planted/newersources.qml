// Not loaded: QML that Qt 5.12 does not support.
import QtQuick 2.15
import QtQuick.Controls 2.13
import QtQml 2.14
import QtTest 1.15
import Qt.labs.folderlistmodel 2.15

Item {
    required property int value
    component Inner: Rectangle {}
    property var first: value ?? 1
    property var second: value?.length
}
