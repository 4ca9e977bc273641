#pragma once

#include <QObject>

/// Turns the system's wish that the program ends (SIGTERM, SIGINT, SIGHUP) into a signal of the
/// event loop, where what is typed can still be written. There is one in a program; when it goes,
/// the signals end the program as ever.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

signals:
    void terminated();
};
