import QtQuick
import QtTest

// What the tests of the components have in common.
TestCase {
    // Counts this signal of this component.
    property alias subject: signalSpy.target
    property alias signalName: signalSpy.signalName
    readonly property alias spy: signalSpy

    function press(...keys) {
        for (const key of keys) {
            keyClick(key);
        }
    }

    function outlineOf(control: var) : var {
        return Array.from(control.children).find(child => "outlinedComponent" in child);
    }

    // Compares the colours that the function gives, with the dark palette and with none. One that is
    // expected is a role and its literal, or a literal alone.
    function compareLooks(shown: var, looks: var) {
        for (const palette of [darkPalette, null]) {
            paletteProvider.palette = palette;
            compare(shown().map(String), looks.map(look => {
                const [role, literal] = Array.isArray(look) ? look : [null, look];
                return palette && role ? String(palette[role]) : literal;
            }));
        }
        paletteProvider.palette = darkPalette;
    }

    // Rows of the keys that act like a click.
    function clickKeys() : var {
        return [{ tag: "Enter", key: Qt.Key_Enter }, { tag: "Return", key: Qt.Key_Return },
                { tag: "Space", key: Qt.Key_Space }];
    }

    when: windowShown

    SignalSpy {
        id: signalSpy
    }
}
