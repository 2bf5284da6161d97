#pragma once

#include "command/Autostart.h"

#include <QByteArray>
#include <QString>

namespace palomet {

/// An entry in the folder "autostart" of the user's configuration, as every desktop reads them. One that the desktop's
/// own settings have switched off counts as off, and is on again when it is turned on.
class AutostartEntry final : public Autostart {
public:
    /// `configuration` is the folder of the user's configuration, `program` the file to start.
    AutostartEntry(const QString &configuration, QString program);

    [[nodiscard]] Result<bool> isOn() const override;
    [[nodiscard]] std::optional<Failure> turnOn() override;
    [[nodiscard]] std::optional<Failure> turnOff() override;

    /// The entry's content.
    [[nodiscard]] static QByteArray entryFor(const QString &program);

private:
    const QString m_path;
    const QString m_program;
};

} // namespace palomet
