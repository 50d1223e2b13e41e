.pragma library

// Returns { path } for an absolute path or a file URL, { other: true } for another URL, and {} for anything else. The path is
// a clean one.
function read(source) {
    var text = source === undefined || source === null ? "" : String(source);
    if (text.charAt(0) === "/")
        return text.indexOf("\0") < 0 ? { path: clean(text) } : {};
    var file = /^file:(?:\/\/(?:localhost)?(?=\/))?(\/(?!\/).*)$/i.exec(text);
    if (file) {
        try {
            var path = decodeURIComponent(file[1]);
            return path.indexOf("\0") < 0 ? { path: clean(path) } : {};
        } catch (error) {
            return {};
        }
    }
    return /^[a-z][a-z0-9+.-]*:/i.test(text) ? { other: true } : {};
}

// The absolute path without empty parts, "." and "..", as QDir::cleanPath() has it. A path that can only be a folder keeps its
// slash at the end.
function clean(path) {
    var parts = [];
    path.split("/").forEach(function(part) {
        if (part === "..")
            parts.pop();
        else if (part !== "" && part !== ".")
            parts.push(part);
    });
    return "/" + parts.join("/") + (parts.length > 0 && /\/\.{0,2}$/.test(path) ? "/" : "");
}

function folderOf(path) {
    return path.slice(0, path.lastIndexOf("/")) || "/";
}

function nameOf(path) {
    return path.slice(path.lastIndexOf("/") + 1);
}

function urlOf(path) {
    return "file://" + path.split("/").map(encodeURIComponent).join("/");
}
