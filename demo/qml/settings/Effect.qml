import QtQuick 2.12

// One effect unit: its switch, its kinds where it has any, and its continuous settings in the order shown.
QtObject {
    property string title
    property Parameter active
    property Parameter kind: null
    property list<Parameter> settings
}
