// The layout of each page at the sizes of both screens: texts and controls lie within the page, no text is
// cut, and no text covers another one.

#include "shellscreen.h"

#include "demo/pages.h"
#include "support/enginepeer.h"
#include "support/patience.h"

#include <QGuiApplication>
#include <QTest>

#include <algorithm>

using namespace testsupport;

namespace {

// Rounding of coordinates, and the empty space beside letters.
constexpr qreal tolerance = 3.0;

struct Placed
{
    QString name;
    QRectF area;
};

bool isText(const QQuickItem *item)
{
    return item->inherits("QQuickText") && !item->property("text").toString().isEmpty();
}

bool isControl(const QQuickItem *item)
{
    return item->inherits("QQuickMouseArea") || item->inherits("QQuickAbstractButton");
}

// The visible items of a kind. Lists scroll, so what they contain may lie outside.
void collect(QQuickItem *root, bool (*wanted)(const QQuickItem *), QVector<QQuickItem *> &items)
{
    if (!root->isVisible() || root->opacity() < 0.05 || root->inherits("QQuickFlickable"))
        return;
    if (wanted(root))
        items.append(root);
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children)
        collect(child, wanted, items);
}

// The area of the letters within the item.
QRectF lettersOf(const QQuickItem *text)
{
    const qreal width = text->property("contentWidth").toReal();
    const qreal height = text->property("contentHeight").toReal();
    const int horizontal = text->property("effectiveHorizontalAlignment").toInt();
    const int vertical = text->property("verticalAlignment").toInt();
    const qreal x = (horizontal & Qt::AlignHCenter) ? (text->width() - width) / 2
                    : (horizontal & Qt::AlignRight) ? text->width() - width
                                                    : 0;
    const qreal y = (vertical & Qt::AlignVCenter)  ? (text->height() - height) / 2
                    : (vertical & Qt::AlignBottom) ? text->height() - height
                                                   : 0;
    // Fonts leave space above and below the letters.
    return {x, y + height / 5, width, height * 3 / 5};
}

bool hasText(QQuickItem *root, const QString &text)
{
    QVector<QQuickItem *> items;
    collect(root, isText, items);
    return std::any_of(items.begin(), items.end(),
                       [&text](const QQuickItem *item) { return item->property("text").toString() == text; });
}

QString describe(const Placed &item)
{
    return QStringLiteral("%1 at %2,%3 %4x%5")
        .arg(item.name)
        .arg(item.area.x(), 0, 'f', 0)
        .arg(item.area.y(), 0, 'f', 0)
        .arg(item.area.width(), 0, 'f', 0)
        .arg(item.area.height(), 0, 'f', 0);
}

bool contains(const QRectF &outer, const QRectF &inner)
{
    return outer.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(inner);
}

bool overlap(const QRectF &one, const QRectF &other)
{
    const QRectF shared = one.intersected(other);
    return shared.width() > tolerance && shared.height() > tolerance;
}

// Texts below an item that are cut, outside of it or covered, one line each.
QStringList textProblems(QQuickItem *root)
{
    QStringList problems;
    QVector<Placed> texts;
    QVector<QQuickItem *> items;
    collect(root, isText, items);
    for (QQuickItem *item : qAsConst(items)) {
        const Placed text{item->property("text").toString(), item->mapRectToItem(root, lettersOf(item))};
        if (item->property("truncated").toBool())
            problems += QStringLiteral("cut: ") + describe(text);
        texts.append(text);
    }
    if (texts.size() <= 3)
        problems += QStringLiteral("only %1 texts").arg(texts.size());
    for (int i = 0; i < texts.size(); ++i) {
        if (!contains(root->boundingRect(), texts.at(i).area))
            problems += QStringLiteral("outside: ") + describe(texts.at(i));
        for (int j = 0; j < i; ++j) {
            if (overlap(texts.at(i).area, texts.at(j).area))
                problems += describe(texts.at(j)) + QStringLiteral(" covers ") + describe(texts.at(i));
        }
    }
    return problems;
}

} // namespace

class LayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPage_data();
    void everyPage();
    void statusWithoutASignal_data();
    void statusWithoutASignal();
    void navigationCanBeTouched_data();
    void navigationCanBeTouched();

private:
    EnginePeer m_peer;
    ShellScreen m_screen;
};

void LayoutTest::initTestCase()
{
    QVERIFY2(m_peer.isOpen(), qPrintable(m_peer.errorString()));
    const QString problem = m_screen.load(QSize(1280, 800));
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

// The screen has a height of 800 and is reduced for smaller windows, so that 1024x600 has the layout of
// 1365x800.
void LayoutTest::everyPage_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("section");
    for (const int width : {1280, 1365}) {
        for (const Page &page : pages()) {
            const bool sections =
                page.name == QLatin1String("equaliser") || page.name == QLatin1String("compressor");
            for (int section = 0; section < (sections ? 4 : 1); ++section) {
                QTest::addRow("%s %d, %d wide", qPrintable(page.name), section, width)
                    << page.name << width << section;
            }
        }
    }
}

void LayoutTest::everyPage()
{
    QFETCH(const QString, page);
    QFETCH(const int, width);
    QFETCH(const int, section);
    m_screen.resize(QSize(width, 800));
    QQuickItem *loader = m_screen.open(page);
    QVERIFY(loader);
    if (QQuickItem *tabs = ShellScreen::itemNamed(loader, QStringLiteral("sections")))
        QMetaObject::invokeMethod(tabs, "chosen", Q_ARG(int, section));
    QVERIFY(m_screen.drawn());

    QStringList problems = textProblems(loader);
    QVector<QQuickItem *> items;
    collect(loader, isControl, items);
    QVERIFY(items.size() > 3);
    for (QQuickItem *item : qAsConst(items)) {
        const Placed control{item->objectName(), item->mapRectToItem(loader, item->boundingRect())};
        if (!contains(loader->boundingRect(), control.area))
            problems += QStringLiteral("outside of the page: ") + describe(control);
    }
    QCOMPARE(problems.join(QLatin1Char('\n')), QString());
}

void LayoutTest::statusWithoutASignal_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("1280x800") << 1280;
    QTest::newRow("1024x600") << 1365;
}

// The longest address, and the hint what to start. The engine of this test sends nothing by itself.
void LayoutTest::statusWithoutASignal()
{
    QFETCH(const int, width);
    m_screen.resize(QSize(width, 800));
    m_screen.shell()->setProperty("engineAddress", QStringLiteral("127.255.255.255:65535"));
    QQuickItem *status = ShellScreen::itemNamed(m_screen.shell(), QStringLiteral("status"));
    QVERIFY(status);
    const QString hint = QStringLiteral("Start zelta-engine-sim, or run zelta-demo --simulate");
    QTRY_VERIFY_WITH_TIMEOUT(hasText(status, hint), patienceMs);
    QVERIFY(m_screen.drawn());
    QCOMPARE(textProblems(status).join(QLatin1Char('\n')), QString());
}

void LayoutTest::navigationCanBeTouched_data()
{
    QTest::addColumn<QString>("page");
    for (const Page &page : pages())
        QTest::newRow(qPrintable(page.name)) << page.name;
}

void LayoutTest::navigationCanBeTouched()
{
    QFETCH(const QString, page);
    m_screen.resize(QSize(1280, 800));
    QVERIFY(m_screen.drawn());
    QQuickItem *button = ShellScreen::itemNamed(m_screen.shell(), QStringLiteral("nav-") + page);
    QVERIFY(button);
    const QRectF area = button->mapRectToItem(m_screen.shell(), button->boundingRect());
    QVERIFY(contains(m_screen.shell()->boundingRect(), area));
    // The size of a fingertip.
    QVERIFY2(area.height() >= 50 && area.width() >= 50, qPrintable(describe({page, area})));
    QVector<QQuickItem *> texts;
    collect(button, isText, texts);
    QCOMPARE(texts.size(), 1);
    QVERIFY(contains(area, texts.first()->mapRectToItem(m_screen.shell(), lettersOf(texts.first()))));
}

QTEST_MAIN(LayoutTest)
#include "tst_layout.moc"
