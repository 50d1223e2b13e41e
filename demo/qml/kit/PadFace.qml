import QtQuick 2.12
import "../style"

// The pad when it is not played. Painted once.
Canvas {
    id: face
    property string shape

    function disc(context, radius, inner, outer) {
        var middle = width / 2;
        var shade = context.createRadialGradient(middle, middle * 0.75, radius * 0.1, middle, middle, radius);
        shade.addColorStop(0, inner);
        shade.addColorStop(1, outer);
        context.fillStyle = shade;
        context.beginPath();
        context.arc(middle, middle, radius, 0, 2 * Math.PI, false);
        context.fill();
    }
    function ring(context, radius, stroke, thickness) {
        context.strokeStyle = stroke;
        context.lineWidth = thickness;
        context.beginPath();
        context.arc(width / 2, width / 2, radius, 0, 2 * Math.PI, false);
        context.stroke();
    }
    function lugs(context, count) {
        var middle = width / 2;
        context.fillStyle = "#7b848f";
        for (var i = 0; i < count; ++i) {
            var at = (i + 0.5) * 2 * Math.PI / count;
            context.beginPath();
            context.arc(middle + (middle - 5) * Math.cos(at), middle + (middle - 5) * Math.sin(at), 2.6, 0,
                        2 * Math.PI, false);
            context.fill();
        }
    }
    function plate(context, inset, corner, fill, stroke) {
        context.fillStyle = fill;
        context.strokeStyle = stroke;
        context.lineWidth = 1;
        context.beginPath();
        context.roundedRect(inset, inset, width - 2 * inset, width - 2 * inset, corner, corner);
        context.fill();
        context.stroke();
    }

    onPaint: {
        var context = getContext("2d");
        var radius = width / 2 - 1;
        context.reset();
        if (shape === "plate") {
            plate(context, 1, 14, "#23282f", "#3a424c");
            plate(context, 11, 9, "#2b313a", "#171b20");
        } else if (shape === "cymbal") {
            disc(context, radius, "#59523f", "#37332a");
            for (var groove = radius - 10; groove > radius * 0.34; groove -= 5)
                ring(context, groove, "rgba(0,0,0,0.16)", 1);
            ring(context, radius - 0.5, "#6d6550", 1);
            disc(context, radius * 0.28, "#6f664d", "#4a4435");
            disc(context, 4, "#16130c", "#16130c");
        } else {
            disc(context, radius, "#454d57", "#2b3139");
            lugs(context, shape === "kick" ? 10 : 8);
            disc(context, radius - 10, "#343b44", "#262b32");
            ring(context, radius - 10, "#14171b", 2);
            if (shape === "kick")
                ring(context, radius * 0.34, "#434b55", 2);
        }
    }
}
