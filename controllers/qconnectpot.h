#pragma once

#include "controllers/devicecontroller.h"

/// Front-panel pots: emits the control object's signals for their steps.
class qconnectpot : public DeviceController
{
    Q_OBJECT

public:
    qconnectpot(QConnectQmlPlugin *owner, QQuickItem *parent);

Q_SIGNALS:
    // Never emitted. Steps are reported by triggerPot0Inc() and so on of the control object.
    void pot0Inc();
    void pot1Inc();
    void pot2Inc();
    void pot3Inc();
    void pot0Dec();
    void pot1Dec();
    void pot2Dec();
    void pot3Dec();

public Q_SLOTS:
    /// Handles a pot event. idx is the pot, 0 to 3; other pots are ignored. data 0 is a step down, any other
    /// value a step up.
    void handle(quint16 id, quint16 idx, quint16 data);
};
