// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

class QLocalServer;

namespace nubo::app {

// Carries a later start's request to the instance already running: a later start ends at
// once, so the running one shows its window and opens the catalogue the later one was given.
class InstanceChannel final : public QObject
{
    Q_OBJECT
public:
    // The channel of one executable file for the current user.
    static QString nameFor(const QString& executablePath);
    // From a later start: asks the running instance to come forward and open catalogue (none
    // when empty). False when no instance listens.
    static bool send(const QString& name, const QString& catalogue);

    explicit InstanceChannel(const QString& name, QObject* parent = nullptr);
    ~InstanceChannel() override;

signals:
    // A later start asked for the window; catalogue is empty when it named none.
    void requested(const QString& catalogue);

private:
    void takeConnection();

    QLocalServer* m_server = nullptr;
};

} // namespace nubo::app
