#include "ui/screens/BrainScreen.h"

#include "localization/TextFormat.h"
#include "model/SettingKey.h"

#include <QJsonArray>
#include <QPointer>

#include <algorithm>

namespace palomet {

namespace {

/// The version stands first, because a long path is cut in its middle.
QString claudeTitle(const Options::ClaudePath &claude) {
    if (claude.path.isEmpty())
        return claude.version.isEmpty() ? unknownValue : isolated(claude.version);
    return claude.version.isEmpty() ? isolated(claude.path)
                                    : isolated(claude.version) + QStringLiteral(" \u00B7 ") + isolated(claude.path);
}

QJsonArray list(const std::vector<QString> &values) {
    return QJsonArray::fromStringList(QStringList(values.begin(), values.end()));
}

} // namespace

QVariant ConfirmActions::data(const QModelIndex &index, int role) const {
    const auto &[id, label, isOn] = row(index);
    switch (role) {
    case Id:
        return id;
    case Label:
        return label;
    case IsOn:
        return isOn;
    default:
        return {};
    }
}

QHash<int, QByteArray> ConfirmActions::roleNames() const {
    return {{Id, "actionId"}, {Label, "label"}, {IsOn, "isOn"}};
}

FolderRows::FolderRows(QString home)
    : m_home(std::move(home)) {}

QVariant FolderRows::data(const QModelIndex &index, int role) const {
    switch (role) {
    case Folder:
        return row(index);
    case Title:
        return BrainScreen::abbreviated(row(index), m_home);
    default:
        return {};
    }
}

QHash<int, QByteArray> FolderRows::roleNames() const {
    return {{Folder, "folder"}, {Title, "title"}};
}

BrainScreen::BrainScreen(PalometModel &model, QString home, FolderPicker pickFolders, std::function<void()> openLog)
    : Screen(model)
    , m_home(std::move(home))
    , m_pickFolders(std::move(pickFolders))
    , m_openLog(std::move(openLog))
    , m_folders(m_home) {
    follow(&PalometModel::snapshotChanged, [this] { updateAll(); });
    follow(&PalometModel::optionsChanged, [this] { updateAll(); });
}

Choices BrainScreen::executables() {
    const auto current = [](const PalometModel &model) -> std::optional<Choice> {
        if (!model.settings())
            return {};
        const auto path = model.settings()->claudePath.value_or(QString());
        // Left to the backend: shows the executable of its session.
        if (path.isEmpty())
            return Choice{path,
                          claudeTitle({model.snapshot()->session.claudePath, model.snapshot()->session.claudeVersion})};
        if (!model.options())
            return Choice{path, path};
        const auto &all = model.options()->claudePaths;
        const auto known = std::find_if(all.begin(), all.end(), [&](const auto &entry) { return entry.path == path; });
        return Choice{path, known == all.end() ? path : claudeTitle(*known)};
    };
    const auto offered = [](const PalometModel &model) {
        std::vector<Choice> choices;
        if (!model.options())
            return choices;
        for (const auto &claude : model.options()->claudePaths)
            choices.push_back({claude.path, claudeTitle(claude)});
        return choices;
    };
    return {.key = settingKey(&Settings::claudePath), .current = current, .offered = offered};
}

QString BrainScreen::abbreviated(const QString &path, const QString &home) {
    const bool isInside =
        !home.isEmpty() && path.startsWith(home) && (path.size() == home.size() || path.at(home.size()) == u'/');
    return isInside ? u'~' + path.sliced(home.size()) : path;
}

void BrainScreen::setConfirmed(const QString &id, bool isConfirmed) {
    if (!model().settings())
        return;
    auto actions = model().settings()->confirmActions;
    if (isConfirmed)
        actions.push_back(id);
    else
        std::erase(actions, id);
    model().set(settingKey(&Settings::confirmActions), list(actions));
}

void BrainScreen::removeFolder(const QString &folder) {
    if (!model().settings())
        return;
    auto folders = model().settings()->folders;
    std::erase(folders, folder);
    model().set(settingKey(&Settings::folders), list(folders));
}

void BrainScreen::addFolder() {
    m_pickFolders([self = QPointer(this)](const QStringList &picked) {
        // The answer may come after this screen's end. Without a snapshot there is no list to add to.
        if (self && self->model().settings())
            self->addFolders(picked);
    });
}

void BrainScreen::addFolders(const QStringList &picked) {
    auto folders = model().settings()->folders;
    for (const auto &folder : picked) {
        if (std::find(folders.begin(), folders.end(), folder) == folders.end())
            folders.push_back(folder);
    }
    model().set(settingKey(&Settings::folders), list(folders));
}

void BrainScreen::updateAll() {
    const auto *now = model().settings();
    std::vector<std::tuple<QString, QString, bool>> actions;
    if (const auto &options = model().options()) {
        for (const auto &action : options->confirmActions) {
            const bool isOn = now && std::find(now->confirmActions.begin(), now->confirmActions.end(), action.id) !=
                                         now->confirmActions.end();
            actions.emplace_back(action.id, action.label, isOn);
        }
    }
    m_confirmActions.assign(std::move(actions));
    m_folders.assign(now ? now->folders : std::vector<QString>());

    const auto folder = now ? abbreviated(now->workingFolder, m_home) : unknownValue;
    if (m_workingFolder != folder) {
        m_workingFolder = folder;
        Q_EMIT workingFolderChanged();
    }
}

} // namespace palomet
