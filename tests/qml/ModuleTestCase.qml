import QtQuick 2.9
import QtTest 1.2
import ZeltaConnect 1.0

// A test case with a module of its own for every test function, and a spy on each of its signals.
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
        compare(names.length, 56)
        for (let i = 0; i < names.length; ++i)
            spies[names[i]] = createTemporaryObject(spyComponent, testCase,
                                                    { target: zelta, signalName: names[i] })
    }

    // The fence behind every report is an event of kind ZZ.
    function isFence(arguments_) {
        return arguments_.length === 3 && arguments_[0] === 0x5A5A
    }

    // Arguments of one emission of a signal.
    function argumentsOf(signalName, emission) {
        return Array.prototype.slice.call(spies[signalName].signalArguments[emission])
    }

    // Signals and how often they fired, as "name: count", in the order of their names.
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
