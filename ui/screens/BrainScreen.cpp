#include "ui/screens/BrainScreen.h"

#include "localization/Localization.h"
#include "localization/TextFormat.h"
#include "model/Format.h"

#include <QJsonArray>
#include <QPointer>

#include <algorithm>

namespace palomet {

namespace {

/// What stands where nothing is known.
const QString absent = QStringLiteral("\u2014");

/// The version first: a path that is too long is cut in its middle.
QString claudeTitle(const Options::ClaudePath &claude) {
    if (claude.path.isEmpty())
        return claude.version.isEmpty() ? absent : isolated(claude.version);
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

BrainScreen::BrainScreen(PalometModel &model, QString home, FolderPicker pickFolders)
    : Screen(model)
    , m_home(std::move(home))
    , m_pickFolders(std::move(pickFolders))
    , m_folders(m_home) {
    follow(&PalometModel::snapshotChanged, [this] { updateSettings(); });
    follow(&PalometModel::applyingChanged, [this] { updateSettings(); });
    follow(&PalometModel::optionsChanged, [this] { updateAll(); });
    const auto pick = [this](ChoiceSetting &setting, const char *key) {
        connect(&setting, &ChoiceSetting::asked, this,
                [this, key](const QString &id) { this->model().set(QString::fromLatin1(key), id); });
    };
    pick(m_brainModel, "brainModel");
    pick(m_claude, "claudePath");
}

QString BrainScreen::abbreviated(const QString &path, const QString &home) {
    const bool isInside =
        !home.isEmpty() && path.startsWith(home) && (path.size() == home.size() || path.at(home.size()) == u'/');
    return isInside ? u'~' + path.sliced(home.size()) : path;
}

void BrainScreen::setConfirmed(const QString &id, bool isConfirmed) {
    if (!settings())
        return;
    auto actions = settings()->confirmActions;
    if (isConfirmed)
        actions.push_back(id);
    else
        std::erase(actions, id);
    model().set(QStringLiteral("confirmActions"), list(actions));
}

void BrainScreen::removeFolder(const QString &folder) {
    if (!settings())
        return;
    auto folders = settings()->folders;
    std::erase(folders, folder);
    model().set(QStringLiteral("folders"), list(folders));
}

void BrainScreen::addFolder() {
    m_pickFolders([self = QPointer(this)](const QStringList &picked) {
        // The answer may come after the window's end; and without a snapshot there is nothing to add to.
        if (self && self->settings())
            self->addFolders(picked);
    });
}

void BrainScreen::addFolders(const QStringList &picked) {
    auto folders = settings()->folders;
    for (const auto &folder : picked) {
        if (std::find(folders.begin(), folders.end(), folder) == folders.end())
            folders.push_back(folder);
    }
    model().set(QStringLiteral("folders"), list(folders));
}

void BrainScreen::updateAll() {
    updateChoices();
    updateSettings();
}

void BrainScreen::updateChoices() {
    std::vector<Choice> models;
    std::vector<Choice> claudes;
    if (const auto &options = model().options()) {
        for (const auto &id : options->models)
            models.push_back({id, Format::model(id)});
        for (const auto &claude : options->claudePaths)
            claudes.push_back({claude.path, claudeTitle(claude)});
    }
    m_brainModel.offer(std::move(models));
    m_claude.offer(std::move(claudes));
}

void BrainScreen::updateSettings() {
    const auto *now = settings();
    m_brainModel.show({.value = now ? Format::model(now->brainModel) : absent,
                       .selected = now ? now->brainModel : QString(),
                       .isBusy = isApplying(u"brainModel")});

    const auto path = now ? now->claudePath.value_or(QString()) : QString();
    const auto &options = model().options();
    ChoiceSetting::Shown claude{.value = path, .selected = path, .isBusy = isApplying(u"claudePath")};
    if (options) {
        const auto &all = options->claudePaths;
        const auto known = std::find_if(all.begin(), all.end(), [&](const auto &entry) { return entry.path == path; });
        if (known != all.end())
            claude.value = claudeTitle(*known);
    }
    // Left to the backend: the one that it took.
    if (path.isEmpty())
        claude.value = now ? claudeTitle({snapshot()->session.claudePath, snapshot()->session.claudeVersion}) : absent;
    m_claude.show(std::move(claude));

    std::vector<std::tuple<QString, QString, bool>> actions;
    if (options) {
        for (const auto &action : options->confirmActions) {
            const bool isOn = now && std::find(now->confirmActions.begin(), now->confirmActions.end(), action.id) !=
                                         now->confirmActions.end();
            actions.emplace_back(action.id, action.label, isOn);
        }
    }
    m_confirmActions.assign(std::move(actions));
    m_folders.assign(now ? now->folders : std::vector<QString>());

    const auto folder = now ? abbreviated(now->workingFolder, m_home) : absent;
    if (m_workingFolder != folder) {
        m_workingFolder = folder;
        Q_EMIT workingFolderChanged();
    }
}

} // namespace palomet
