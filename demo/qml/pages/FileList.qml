import QtQuick 2.12
import QtQuick.Controls 2.12
import "../style"

// The folders and files of a folder, with a row that leads to the parent folder.
ListView {
    id: list
    property string chosenPath
    signal fileChosen(string filePath)
    signal folderChosen(url folderUrl)

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    header: FileRow {
        width: list.width
        name: "\u2191  Up one folder"
        onTapped: {
            if (String(list.model.parentFolder).length > 0)
                list.folderChosen(list.model.parentFolder);
        }
    }
    delegate: FileRow {
        objectName: "file-" + fileName
        width: list.width
        name: fileName + (fileIsDir ? "/" : "")
        aside: fileIsDir ? "" : fileSize < 1048576 ? Math.ceil(fileSize / 1024) + " kB"
                                                   : (fileSize / 1048576).toFixed(1) + " MB"
        current: filePath === list.chosenPath
        onTapped: {
            if (fileIsDir)
                list.folderChosen(fileURL);
            else
                list.fileChosen(filePath);
        }
    }
    ScrollBar.vertical: ScrollBar { width: 8 }
}
