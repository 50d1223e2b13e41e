#pragma once

#include "failures.h"

#include <QHash>
#include <QObject>

namespace simulated {

/// Answers the module's queries for versions and for the hi-hat pedal.
class QueryResponder : public QObject
{
    Q_OBJECT

public:
    explicit QueryResponder(QObject *parent = nullptr);

    void setFailures(const FailureSet &failures) { m_failures = failures; }

    /// Sets the two numbers of the answer to query.
    void setAnswer(quint16 query, quint16 a, quint16 b);

    struct Answer
    {
        quint16 a = 0;
        quint16 b = 0;
    };
    Answer answer(quint16 query) const { return m_answers.value(query); }

    void take(quint16 query);

Q_SIGNALS:
    void reply(quint16 id, quint16 a, quint16 b);
    void noted(const QString &line);

private:
    FailureSet m_failures;
    QHash<quint16, Answer> m_answers;
};

} // namespace simulated
