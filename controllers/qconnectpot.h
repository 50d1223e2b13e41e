#pragma once

#include "controllers/parametercontroller.h"

/// Front-panel pots: turns their steps into the control object's signals.
class qconnectpot : public ParameterController
{
    Q_OBJECT

public:
    qconnectpot(QConnectQmlPlugin *owner, QQuickItem *parent);

Q_SIGNALS:
    // Never emitted: the steps go out through the control object's signals.
    void pot0Inc();
    void pot1Inc();
    void pot2Inc();
    void pot3Inc();
    void pot0Dec();
    void pot1Dec();
    void pot2Dec();
    void pot3Dec();

public Q_SLOTS:
    /// Handles a pot event: idx is the pot, 0 to 3, data 0 a step down and anything else a step up.
    void handle(quint16 id, quint16 idx, quint16 data);
};
