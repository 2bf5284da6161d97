#include "ui/preview/Preview.h"

#include "model/Documents.h"

#include <QFile>
#include <QImageWriter>
#include <QQuickWindow>

namespace palomet::preview {

using namespace Qt::StringLiterals;

namespace {

template <typename Value>
std::optional<Value> valueOf(Result<Value> decoded) {
    return decoded ? std::optional(std::move(*decoded)) : std::nullopt;
}

} // namespace

std::optional<Pane> pane(const QStringList &arguments) {
    const auto at = arguments.indexOf(u"--preview"_s);
    if (at < 0)
        return std::nullopt;
    return paneFrom(arguments.value(at + 1)).value_or(Pane::Now);
}

std::optional<QString> capturePath(const QStringList &arguments) {
    const auto at = arguments.indexOf(u"--capture"_s);
    return at < 0 || at + 1 >= arguments.size() ? std::nullopt : std::optional(arguments.at(at + 1));
}

void fill(PalometModel &model) {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    const auto samples = documents(Milliseconds(model.now().time_since_epoch()).count());
    if (auto snapshot = decodeSnapshot(samples.state))
        model.setSnapshot(std::make_shared<const Snapshot>(std::move(*snapshot)));
    model.setOptions(valueOf(decodeOptions(samples.options)));
    if (auto history = decodeHistory(samples.history))
        model.setHistory(std::move(*history));
    model.setMicAuthorized(true);
}

Result<QSize> capture(QQuickWindow &window, const QString &path) {
    const auto picture = window.grabWindow();
    if (picture.isNull())
        return Failure{u"the window could not be drawn"_s};
    QImageWriter writer(path, "png");
    if (!writer.write(picture))
        return Failure{path + u": "_s + writer.errorString()};
    return picture.size();
}

} // namespace palomet::preview
