#pragma once

#include "ui/screens/ChoiceSetting.h"
#include "ui/screens/RowModel.h"

#include <QStringList>

#include <functional>

namespace palomet {

/// The kinds of action that can be made to ask first, each with its switch.
class ConfirmActions final : public RowModel<std::tuple<QString, QString, bool>> {
    Q_OBJECT

public:
    enum Role { Id = Qt::UserRole, Label, IsOn };

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

/// The folders that the system may work in, beside the working folder.
class FolderRows final : public RowModel<QString> {
    Q_OBJECT

public:
    enum Role { Folder = Qt::UserRole, Title };

    explicit FolderRows(QString home);

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    const QString m_home;
};

/// Asks the user for folders and calls `picked` with them, at once or later; not at all when the user cancels.
using FolderPicker = std::function<void(std::function<void(const QStringList &folders)> picked)>;

/// The brain pane: what it shows and what it sends.
class BrainScreen final : public Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens come from the window.")
    Q_PROPERTY(palomet::SettingGroup *session READ session CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel *confirmActions READ confirmActions CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel *folders READ folders CONSTANT FINAL)
    Q_PROPERTY(QString workingFolder READ workingFolder NOTIFY workingFolderChanged FINAL)

public:
    /// `home` is the user's home folder; `openLog` shows the backend's log file.
    BrainScreen(PalometModel &model, QString home, FolderPicker pickFolders, std::function<void()> openLog);

    [[nodiscard]] SettingGroup *session() { return &m_session; }
    [[nodiscard]] QAbstractItemModel *confirmActions() { return &m_confirmActions; }
    [[nodiscard]] QAbstractItemModel *folders() { return &m_folders; }
    [[nodiscard]] QString workingFolder() const { return m_workingFolder; }

    Q_INVOKABLE void setConfirmed(const QString &id, bool isConfirmed);
    Q_INVOKABLE void removeFolder(const QString &folder);
    Q_INVOKABLE void addFolder();
    Q_INVOKABLE void openLog() { m_openLog(); }

    /// The path with "~" for the user's home folder, if it lies in it.
    [[nodiscard]] static QString abbreviated(const QString &path, const QString &home);

Q_SIGNALS:
    void workingFolderChanged();

protected:
    void updateAll() override;

private:
    using Settings = Snapshot::Settings;
    using Content = Setting::Content;

    [[nodiscard]] static Choices executables();
    void addFolders(const QStringList &picked);

    const QString m_home;
    const FolderPicker m_pickFolders;
    const std::function<void()> m_openLog;
    SettingGroup m_session{*this, "brain.sessionBlock"};
    ChoiceSetting m_brainModel{m_session, "brain.model", names(&Settings::brainModel, &Options::models, &Format::model),
                               Content::Name};
    ChoiceSetting m_claude{m_session, {"Claude Code", "brain.claude.hint"}, executables(), Content::Path};
    ConfirmActions m_confirmActions;
    FolderRows m_folders;
    QString m_workingFolder;
};

} // namespace palomet
