import QtQuick 2.12
import Qt.labs.folderlistmodel 2.2
import "../controls"
import "../device"
import "../settings"
import "../settings/texts.js" as Texts
import "../style"

// The two catalogues of banks: shows the content of a catalogue or of a file, and copies a file over a catalogue, which
// also restores a copy that was made before.
Card {
    id: card
    title: "Catalogue"
    aside: catalogue.path

    readonly property var catalogues: [
        { name: "Sound banks", path: "/home/.local/share/E-Drum/soundBank.json",
          list: "parseSoundBankList", replace: "backupSoundBankList" },
        { name: "Trigger banks", path: "/home/.local/share/E-Drum/triggerBank.json",
          list: "parseTriggerBankList", replace: "backupTriggerBankList" }
    ]
    property int kind: 0
    readonly property var catalogue: catalogues[kind]
    property string chosenPath
    property string answer: "Nothing read yet"
    property bool failed: false

    function show(text, otherwise) {
        failed = false;
        answer = text.length > 0 ? text : otherwise;
    }
    function listCatalogue() {
        show(Texts.outline(Device.request(catalogue.list, [catalogue.path]), ""),
             "Nothing to list: there is no catalogue, or it is empty or not JSON.");
    }
    function showFile(path) {
        show(Device.request("parseJsonFile", [path]), "Nothing to show: the file cannot be read, or it is empty.");
    }
    function replaceCatalogue() {
        var result = Device.send(catalogue.replace, [chosenPath]);
        failed = result !== 0;
        answer = result === 0 ? "Copied over the catalogue (0)."
               : result === -1 ? "The file cannot be read (\u22121)."
                               : "The catalogue cannot be opened for writing (" + Texts.signed(result) + ").";
    }

    FolderListModel {
        id: folder
        folder: Settings.startFolder
        showDirsFirst: true
        showDotAndDotDot: false
    }
    SectionTabs {
        id: tabs
        objectName: "catalogues"
        width: parent.width
        names: card.catalogues.map(function(each) { return each.name; })
        current: card.kind
        onChosen: card.kind = index
    }
    Rectangle {
        id: files
        anchors { left: parent.left; top: tabs.bottom; topMargin: 12; bottom: fileButtons.top; bottomMargin: 12 }
        width: (parent.width - Theme.gap) / 2
        radius: 10
        color: Theme.background
        border.color: Theme.line
        FileList {
            anchors { fill: parent; margins: 4 }
            model: folder
            chosenPath: card.chosenPath
            onFileChosen: card.chosenPath = filePath
            onFolderChosen: folder.folder = folderUrl
        }
    }
    Column {
        id: fileButtons
        anchors { left: files.left; right: files.right; bottom: parent.bottom }
        spacing: Theme.tight
        PushButton {
            objectName: "showFile"
            width: parent.width
            enabled: card.chosenPath.length > 0
            text: "Show the file"
            onConfirmed: card.showFile(card.chosenPath)
        }
        PushButton {
            objectName: "replaceCatalogue"
            width: parent.width
            enabled: card.chosenPath.length > 0
            warning: true
            text: "Hold to copy it over the catalogue"
            onConfirmed: card.replaceCatalogue()
        }
    }
    Rectangle {
        anchors {
            left: files.right; leftMargin: Theme.gap; right: parent.right; top: files.top
            bottom: catalogueButtons.top; bottomMargin: 12
        }
        radius: 10
        color: Theme.background
        border.color: Theme.line
        Flickable {
            anchors { fill: parent; margins: 14 }
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            contentHeight: content.height
            Text {
                id: content
                objectName: "catalogueText"
                width: parent.width
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: card.answer
                color: card.failed ? Theme.alarm : Theme.text
                font.pixelSize: Theme.body
            }
        }
    }
    Column {
        id: catalogueButtons
        anchors { left: files.right; leftMargin: Theme.gap; right: parent.right; bottom: parent.bottom }
        spacing: Theme.tight
        PushButton {
            objectName: "listCatalogue"
            width: parent.width
            text: "List the catalogue"
            onConfirmed: card.listCatalogue()
        }
        PushButton {
            objectName: "showCatalogue"
            width: parent.width
            text: "Show its text"
            onConfirmed: card.showFile(card.catalogue.path)
        }
    }
}
