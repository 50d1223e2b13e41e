import QtQml 2.12
import Qt.labs.folderlistmodel 2.11
import "paths.js" as Paths

// Determines in another thread whether a path is a regular file that can be read, and its size. Does not open the file.
QtObject {
    id: check
    property string path

    // size is -1 if there is no such file, and NaN if there was no answer in time.
    signal answered(real size)

    property bool isAnswered: false
    function answer(size) {
        if (isAnswered)
            return;
        isAnswered = true;
        answered(size);
    }

    readonly property FolderListModel model: FolderListModel {
        folder: Paths.urlOf(Paths.folderOf(check.path))
        // The characters of a pattern stand for themselves.
        nameFilters: [Paths.nameOf(check.path).replace(/[\[*?]/g, "[$&]")]
        showDirs: false
        showHidden: true
        showOnlyReadable: true
        onStatusChanged: {
            if (status === FolderListModel.Ready)
                check.answer(check.sizeInModel());
        }
    }
    // For a folder that does not exist the model shows the current one, hence the comparison.
    function sizeInModel() {
        for (var i = 0; i < model.count; ++i) {
            if (model.get(i, "filePath") === path.replace(/\/+/g, "/"))
                return model.get(i, "fileSize");
        }
        return -1;
    }

    readonly property Timer patience: Timer {
        interval: 10000
        running: true
        onTriggered: check.answer(NaN)
    }
}
