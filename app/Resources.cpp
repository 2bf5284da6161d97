#include "app/Resources.h"

#include <QDir>
#include <QFileInfo>

namespace palomet {

using namespace Qt::StringLiterals;

std::optional<QString> resourceFolder(const QString &executableFolder) {
    const auto existing = [](const QString &path) {
        const QFileInfo info(path);
        return info.isDir() ? std::optional(QDir::cleanPath(info.absoluteFilePath())) : std::nullopt;
    };
    if (const auto named = qEnvironmentVariable("PALOMET_RESOURCES"); !named.isEmpty())
        return existing(named);
    if (auto beside = existing(executableFolder + u"/resources"_s))
        return beside;
    return existing(executableFolder + u"/../share/palomet"_s);
}

} // namespace palomet
