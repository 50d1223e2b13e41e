// Writes the names of parameters and pads as the Lua table that the dissector reads.

#include "simulator/kit.h"
#include "simulator/parametertable.h"

#include <QFile>
#include <QTextStream>

namespace {

using namespace simulated;

// No parameter outside of the per-pad and per-input pages has this number.
constexpr quint8 anyInput = 0xC8;

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString formText(ValueForm form)
{
    switch (form) {
    case ValueForm::Byte: return QStringLiteral("byte");
    case ValueForm::Tempo: return QStringLiteral("tempo");
    case ValueForm::Frequency: return QStringLiteral("frequency");
    case ValueForm::Routing: return QStringLiteral("routing");
    }
    return QString();
}

QString rowText(int number, int digits, const QString &name, ValueForm form)
{
    return QStringLiteral("        [0x%1] = {name = %2, form = %3},\n")
        .arg(number, digits, 16, QLatin1Char('0'))
        .arg(quoted(name), quoted(formText(form)));
}

// The name of a page's parameters with "%d" in place of the pad or input; empty when msb is no page.
QString pageName(quint8 msb)
{
    QString name = parameterInfo(msb, anyInput).name;
    return name.replace(QString::number(anyInput), QStringLiteral("%d"));
}

void writeParameters(QTextStream &out)
{
    QString pages;
    QString global;
    for (int msb = 0; msb <= 0xFF; ++msb) {
        const QString page = pageName(quint8(msb));
        if (!page.isEmpty())
            pages += rowText(msb, 2, page, parameterInfo(quint8(msb), anyInput).form);
        for (int lsb = 0; lsb <= 0xFF; ++lsb) {
            const ParameterInfo info = parameterInfo(quint8(msb), quint8(lsb));
            QString nameOnPage = page;
            nameOnPage.replace(QStringLiteral("%d"), QString::number(lsb));
            if (info.isKnown() && info.name != nameOnPage)
                global += rowText(msb << 8 | lsb, 4, info.name, info.form);
        }
    }
    out << "    global = {\n" << global << "    },\n    pages = {\n" << pages << "    },\n";
}

void writeZones(QTextStream &out)
{
    out << "    zones = {\n";
    for (const Zone &zone : kitZones()) {
        out << QStringLiteral("        [%1] = {name = %2, pad = %3, zone = %4, canBeChoked = %5},\n")
                   .arg(zone.note)
                   .arg(quoted(QLatin1String(zone.name)))
                   .arg(zone.pad)
                   .arg(zone.zone)
                   .arg(zone.canBeChoked ? QLatin1String("true") : QLatin1String("false"));
    }
    out << "    },\n";
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        QTextStream(stderr) << "usage: writeparameters FILE\n";
        return 2;
    }
    QFile file(QFile::decodeName(argv[1]));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        QTextStream(stderr) << "writeparameters: " << file.fileName() << ": " << file.errorString() << '\n';
        return 1;
    }
    QTextStream out(&file);
    out << "-- Written by the build from the tables of the simulated sound engine.\n\nreturn {\n";
    writeParameters(out);
    writeZones(out);
    out << "}\n";
    out.flush();
    return file.error() == QFileDevice::NoError ? 0 : 1;
}
