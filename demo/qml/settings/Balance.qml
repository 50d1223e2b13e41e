import QtQuick 2.12
import "texts.js" as Texts

// A position between two sides. The middle is 64.
Parameter {
    label: "Balance"
    value: 64
    neutral: 64
    bipolar: true
    wording: Texts.side
}
