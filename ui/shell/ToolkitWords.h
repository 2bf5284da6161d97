#pragma once

class QCoreApplication;
class QString;

namespace palomet {

/// Has the toolkit's own dialogs speak a language, given as a language tag. Where its translations are not installed,
/// they stay English. To be called once, before anything is shown.
void translateToolkit(QCoreApplication &application, const QString &language);

} // namespace palomet
