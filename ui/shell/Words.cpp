#include "ui/shell/Words.h"

#include "localization/Localization.h"

namespace palomet {

QString Words::t(const QString &key) const {
    return L(key);
}

} // namespace palomet
