#pragma once

#include <QString>

#include <vector>

namespace palomet {

/// One option as a reader meets it.
struct OptionHelp {
    QString name;     ///< "--say"
    QString argument; ///< "TEXT", "[PANE]"; empty without one.
    QString meaning;

    [[nodiscard]] QString usage() const { return argument.isEmpty() ? name : name + u' ' + argument; }
};

struct OptionGroup {
    QString title;
    std::vector<OptionHelp> options;
};

} // namespace palomet
