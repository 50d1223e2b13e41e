// Lists the catalogue of the sound banks, and replaces it by a file.
import QtQuick 2.12
import ZeltaConnect.Companion 1.0

Item {
    id: screen
    width: 480
    height: 320
    readonly property string path: "/home/.local/share/E-Drum/soundBank.json"
    property string problem

    Engine {
        id: drums
        Component.onCompleted: screen.reload()
    }
    ListModel {
        id: entries
    }
    // The module returns the JSON object as it is. A catalogue that is missing or damaged gives an empty object.
    function reload() {
        var catalogue = drums.zelta.parseSoundBankList(path);
        var names = Object.keys(catalogue).sort();
        entries.clear();
        for (var i = 0; i < names.length; ++i) {
            var value = catalogue[names[i]];
            entries.append({ name: names[i], value: typeof value === "string" ? value : JSON.stringify(value) });
        }
        problem = names.length > 0 ? "" : "There is no catalogue.";
    }
    // file is a path. The module copies anything, so look into the file first.
    function replace(file) {
        if (Object.keys(drums.zelta.parseSoundBankList(file)).length === 0) {
            problem = "This file is not a catalogue.";
            return;
        }
        if (drums.zelta.backupSoundBankList(file) === 0)
            reload();
        else
            problem = "The catalogue cannot be written.";
    }

    ListView {
        objectName: "entries"
        anchors.fill: parent
        model: entries
        delegate: Text {
            objectName: "entry" + index
            text: model.name + ": " + model.value
        }
    }
    Text {
        objectName: "problem"
        anchors.centerIn: parent
        text: screen.problem
    }
}
