.pragma library

// The queue of each ZeltaConnect object. A queue is a child of its object and is deleted with it.
var queues = [];

function create(file, parent, properties) {
    var component = Qt.createComponent(file);
    var object = component.createObject(parent, properties || {});
    if (!object)
        throw new Error(component.errorString());
    return object;
}

function queueOf(zelta) {
    queues = queues.filter(function(queue) { return queue && queue.zelta; });
    for (var i = 0; i < queues.length; ++i) {
        if (queues[i].zelta === zelta)
            return queues[i];
    }
    var queue = create("TransferQueue.qml", zelta, { zelta: zelta });
    queues.push(queue);
    return queue;
}
