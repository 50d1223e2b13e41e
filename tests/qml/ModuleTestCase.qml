import QtQuick 2.9
import QtTest 1.2
import ZeltaConnect 1.0

// A test case with a new module for each test function, and a spy on each of its signals.
TestCase {
    id: testCase

    property ZeltaConnect zelta: null
    property var spies: ({})

    Component {
        id: moduleComponent
        ZeltaConnect {}
    }

    Component {
        id: spyComponent
        SignalSpy {}
    }

    function init() {
        zelta = createTemporaryObject(moduleComponent, testCase)
        verify(zelta)
        verify(engine.attach(zelta))
        spies = {}
        const names = engine.signalNames()
        verify(names.length > 0)
        for (let i = 0; i < names.length; ++i)
            spies[names[i]] = createTemporaryObject(spyComponent, testCase,
                                                    { target: zelta, signalName: names[i] })
    }

    // engine.send() ends with an event with the tag ZZ.
    function isFence(arguments_) {
        return arguments_.length === 3 && arguments_[0] === 0x5A5A
    }

    // The arguments of one emission of a signal.
    function argumentsOf(signalName, emission) {
        return Array.prototype.slice.call(spies[signalName].signalArguments[emission])
    }

    // The emitted signals with their counts, as "name: count", sorted by name.
    function fired() {
        const result = []
        for (const name in spies) {
            let count = 0
            for (let i = 0; i < spies[name].count; ++i)
                count += isFence(spies[name].signalArguments[i]) ? 0 : 1
            if (count > 0)
                result.push(name + ": " + count)
        }
        return result.sort()
    }
}
