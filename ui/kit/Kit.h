#pragma once

#include <QIcon>
#include <QString>

class QQmlEngine;

/// The visual kit, made ready for use.
namespace palomet::Kit {

/// Registers the typeface of the resource folder with the application. Where a face cannot be read, the interface shows
/// in the system's typeface.
void registerFonts(const QString &resources);

/// The program's own icon, for the lists of windows that desktops show; null where the resource folder has none.
[[nodiscard]] QIcon programIcon(const QString &resources);

/// Makes the module `Palomet.Kit` importable in this engine, its icons coming from the resource folder.
void install(QQmlEngine &engine, const QString &resources);

/// Whether the desktop asks for reduced motion: nothing in this engine moves then.
void setMotionReduced(QQmlEngine &engine, bool isReduced);

/// Whether the desktop asks for more contrast: text and edges in this engine are stronger then.
void setContrastRaised(QQmlEngine &engine, bool isRaised);

} // namespace palomet::Kit
