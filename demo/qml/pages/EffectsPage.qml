import QtQuick 2.12
import "../settings"
import "../style"

// The four effect units, one below the other.
Column {
    id: page
    padding: Theme.margin
    spacing: Theme.gap

    Repeater {
        model: Settings.effects.all
        EffectRow {
            effect: modelData
            width: page.width - 2 * Theme.margin
            height: (page.height - 2 * Theme.margin - 3 * Theme.gap) / 4
        }
    }
}
