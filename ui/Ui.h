#pragma once

class QQmlEngine;
class QString;

/// The QML of the window and of the strip, made ready for use.
namespace palomet::ui {

/// Makes the modules `Palomet.Kit` and `Palomet.Ui` importable in this engine; icons come from the resource folder.
void install(QQmlEngine &engine, const QString &resources);

} // namespace palomet::ui
