#include "ui/Ui.h"

#include "ui/kit/Kit.h"

#include <QQmlEngine>

// The build makes it for the module; naming it here keeps the linker from dropping it.
extern void qml_register_types_Palomet_Ui();

namespace palomet::Ui {

void install(QQmlEngine &engine, const QString &resources) {
    [[maybe_unused]] static volatile auto registration = &qml_register_types_Palomet_Ui;
    Kit::install(engine, resources);
}

} // namespace palomet::Ui
