#pragma once

#include "gestures.h"

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVector>

/// One page of the screen as the program sees it.
struct Page
{
    QString name;          ///< as --page takes it
    QVector<Gesture> tour; ///< what the tour does on the page
};

/// The pages in the order of the navigation bar, read once from qml/pages.json. An entry holds the page's
/// name, the label and the icon (an SVG path on a 24 by 24 grid) of its button, its file in qml/pages, and
/// optionally its tour.
const QVector<Page> &pages();

/// The names of the pages, in the same order.
QStringList pageNames();

/// The whole list, for the screen.
QVariantList pageList();
