#pragma once

#include <QString>

#include <vector>

namespace palomet {

/// The choices of the settings, as the backend's `options` document gives them.
struct Options {
    /// An installed `claude` tool.
    struct ClaudePath {
        QString path;
        QString version;

        bool operator==(const ClaudePath &) const = default;
    };

    /// A kind of action that can be made to ask first.
    struct Action {
        QString id;
        QString label;

        bool operator==(const Action &) const = default;
    };

    std::vector<QString> inputs;
    std::vector<QString> models;
    std::vector<QString> whisperModels;
    std::vector<QString> fishModels;
    std::vector<QString> macVoices; ///< System voices that can stand in when synthesis fails.
    std::vector<ClaudePath> claudePaths;
    std::vector<Action> confirmActions;

    bool operator==(const Options &) const = default;
};

} // namespace palomet
