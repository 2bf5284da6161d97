#include "ui/shell/Words.h"

#include "ui/localization/Localization.h"

namespace palomet {

QString Words::t(const QString &key) const {
    return L(key);
}

} // namespace palomet
