#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

namespace palomet {

/// The texts among GNOME's settings, read by GNOME's own library, which is loaded when the first of these is made. Main
/// thread only.
class GnomeSettings {
public:
    struct Setting {
        QString key;
        QStringList texts; ///< One, or as many as it is a list of.

        bool operator==(const Setting &) const = default;
    };

    GnomeSettings();
    ~GnomeSettings();

    /// The settings of a schema as they are now; those at `path` where it is a schema for several places. Empty where
    /// it is not installed, or the library is not.
    [[nodiscard]] std::vector<Setting> read(const QString &schema, const QString &path = {});

private:
    struct Library;
    class Group;

    std::unique_ptr<Library> m_library; ///< Null where it is not installed.
    std::map<std::pair<QString, QString>, std::unique_ptr<Group>> m_groups;
};

} // namespace palomet
