#pragma once

#include "base/Result.h"
#include "model/PalometModel.h"
#include "ui/shell/Navigation.h"

#include <QStringList>

#include <optional>

class QQuickWindow;

/// Preview mode: the window on a chosen pane, filled with fixed sample data instead of a live backend, and a picture of
/// it in a file.
namespace palomet::Preview {

/// The pane that "--preview" asks for among the program's arguments; `Now` when it names none. None without it.
[[nodiscard]] std::optional<Pane> pane(const QStringList &arguments);

/// The argument after the first "--capture".
[[nodiscard]] std::optional<QString> capturePath(const QStringList &arguments);

/// Fills the model with sample data in the user's language, a few minutes before the model's clock.
void fill(PalometModel &model);

/// The sample documents, as a backend would send them, for a clock in milliseconds since the Unix epoch.
struct Documents {
    QByteArray state;
    QByteArray options;
    QByteArray history;
};
[[nodiscard]] Documents documents(double clock);

/// Writes the window's content to a PNG file, in the pixels of its screen. Fails when the window cannot be drawn or the
/// file cannot be written.
Result<QSize> capture(QQuickWindow &window, const QString &path);

} // namespace palomet::Preview
