import QtQuick 2.12

// One effect unit: its switch, its type if it has one, and its continuous settings in the order of the screen.
QtObject {
    property string title
    property Parameter active
    property Parameter kind: null
    property list<Parameter> settings
}
