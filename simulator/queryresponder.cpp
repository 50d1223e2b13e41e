#include "queryresponder.h"

#include "wire.h"

#include <QTimer>

namespace simulated {

namespace {

// The query whose reply is sent instead.
quint16 another(quint16 query)
{
    switch (query) {
    case Tag::EngineVersion: return Tag::TriggerVersion;
    case Tag::TriggerVersion: return Tag::SoundBankVersion;
    case Tag::SoundBankVersion: return Tag::TriggerBankVersion;
    case Tag::TriggerBankVersion: return Tag::HiHatRaw;
    default: return Tag::EngineVersion;
    }
}

} // namespace

QueryResponder::QueryResponder(QObject *parent)
    : QObject(parent)
    , m_answers{{Tag::EngineVersion, {1, 0}},
                {Tag::TriggerVersion, {0, 100}},
                {Tag::SoundBankVersion, {1, 0}},
                {Tag::TriggerBankVersion, {0, 100}},
                {Tag::HiHatRaw, {512, 0}}}
{}

void QueryResponder::setAnswer(quint16 query, quint16 a, quint16 b)
{
    m_answers.insert(query, {a, b});
}

void QueryResponder::take(quint16 query)
{
    if (m_failures.has(Failure::StrayAcks)) {
        Q_EMIT noted(QStringLiteral("acknowledged packet 0 without a transfer"));
        Q_EMIT reply(Tag::TransferData, 0, 0);
    }
    if (m_failures.has(Failure::NoQueryReply)) {
        Q_EMIT noted(QStringLiteral("did not answer query %1").arg(tagText(query)));
        return;
    }
    const quint16 id = m_failures.has(Failure::WrongQueryReply) ? another(query) : query;
    const Answer answer = m_answers.value(id);
    if (!m_failures.has(Failure::LateQueryReply)) {
        Q_EMIT reply(id, answer.a, answer.b);
        return;
    }
    auto *late = new QTimer(this);
    late->setSingleShot(true);
    connect(late, &QTimer::timeout, this, [this, late, id, answer] {
        late->deleteLater();
        Q_EMIT reply(id, answer.a, answer.b);
    });
    late->start(m_failures.value(Failure::LateQueryReply));
}

} // namespace simulated
