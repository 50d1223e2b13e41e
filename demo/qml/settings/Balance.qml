import QtQuick 2.12
import "words.js" as Words

// A left-right position, 64 in the middle.
Parameter {
    label: "Balance"
    value: 64
    neutral: 64
    bipolar: true
    wording: Words.side
}
