#pragma once

class QCoreApplication;
class QString;

namespace palomet {

/// Translates the toolkit's own dialogs into a language, given as a language tag. They stay English where its
/// translations are not installed. To be called once, before anything is shown.
void translateToolkit(QCoreApplication &application, const QString &language);

} // namespace palomet
