#include "realkit.h"

#include "simulator/midiinput.h"

#include <QDir>

namespace {

QString fullPath(const QString &path)
{
    const QString trimmed = path.trimmed();
    return trimmed.startsWith(QLatin1String("~/")) ? QDir::homePath() + trimmed.mid(1) : trimmed;
}

} // namespace

RealKit::RealKit(SoundEngine *engine, QObject *parent)
    : QObject(parent)
    , m_engine(engine)
{}

RealKit::~RealKit() = default;

void RealKit::connectTo(const QString &path, const QString &notes)
{
    m_input.reset();
    if (path.trimmed().isEmpty()) {
        setState(QStringLiteral("a kit needs a device file or a FIFO"));
        return;
    }
    simulated::NoteMap map;
    QString problem;
    if (!notes.trimmed().isEmpty() && !map.load(fullPath(notes), &problem)) {
        setState(problem.section(QLatin1Char('\n'), 0, 0));
        return;
    }
    m_input = std::make_unique<simulated::MidiInput>(fullPath(path), m_engine);
    m_input->setNoteMap(map);
    connect(m_input.get(), &simulated::MidiInput::stateChanged, this, &RealKit::setState);
    connect(m_input.get(), &simulated::MidiInput::played, this, &RealKit::played);
    m_input->start();
    Q_EMIT changed();
}

void RealKit::disconnectKit()
{
    m_input.reset();
    setState({});
}

void RealKit::setState(const QString &state)
{
    m_state = state;
    Q_EMIT changed();
}
