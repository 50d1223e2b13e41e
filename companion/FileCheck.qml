import QtQml 2.12
import Qt.labs.folderlistmodel 2.11
import "paths.js" as Paths

// Determines in another thread whether a path is a regular file that can be read, and its size. Does not open the file.
QtObject {
    id: check
    // As paths.js reads it.
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

    readonly property string folder: Paths.folderOf(path)
    // The model decodes these characters of a folder twice. It accepts a folder that is encoded twice only after its creation,
    // and may show another one before. The entry "." then shows which one it is.
    readonly property bool isDecodedTwice: /[%#?]/.test(folder)

    readonly property FolderListModel model: FolderListModel {
        folder: check.isDecodedTwice ? "file:///" : Paths.urlOf(check.folder)
        // The characters of a pattern stand for themselves.
        nameFilters: [Paths.nameOf(check.path).replace(/[\[*?]/g, "[$&]")]
        showDirs: check.isDecodedTwice
        showDotAndDotDot: check.isDecodedTwice
        showHidden: true
        showOnlyReadable: true
        onStatusChanged: {
            if (status === FolderListModel.Ready)
                check.readModel();
        }
        Component.onCompleted: {
            if (check.isDecodedTwice)
                folder = Paths.urlOf(check.folder.replace(/[%#?]/g, encodeURIComponent));
        }
    }
    // For a folder that does not exist the model shows the current one, hence the comparison.
    function readModel() {
        var isRightFolder = !isDecodedTwice;
        for (var i = 0; i < model.count; ++i) {
            var found = model.get(i, "filePath");
            if (found === path && !model.get(i, "fileIsDir")) {
                answer(model.get(i, "fileSize"));
                return;
            }
            if (found === folder + "/.")
                isRightFolder = true;
        }
        if (isRightFolder)
            answer(-1);
    }

    readonly property Timer patience: Timer {
        interval: 10000
        running: true
        onTriggered: check.answer(NaN)
    }
}
