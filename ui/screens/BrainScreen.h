#pragma once

#include "ui/screens/RowModel.h"
#include "ui/screens/Screen.h"
#include "ui/screens/Setting.h"

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

/// The reasoning side: what the brain pane shows and what it sends.
class BrainScreen final : public Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens come from the window.")
    Q_PROPERTY(palomet::ChoiceSetting *brainModel READ brainModel CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *claude READ claude CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel *confirmActions READ confirmActions CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel *folders READ folders CONSTANT FINAL)
    Q_PROPERTY(QString workingFolder READ workingFolder NOTIFY workingFolderChanged FINAL)

public:
    /// `home` is the user's home folder; `openLog` shows the backend's log file.
    BrainScreen(PalometModel &model, QString home, FolderPicker pickFolders, std::function<void()> openLog);

    [[nodiscard]] ChoiceSetting *brainModel() { return &m_brainModel; }
    [[nodiscard]] ChoiceSetting *claude() { return &m_claude; }
    [[nodiscard]] QAbstractItemModel *confirmActions() { return &m_confirmActions; }
    [[nodiscard]] QAbstractItemModel *folders() { return &m_folders; }
    [[nodiscard]] QString workingFolder() const { return m_workingFolder; }

    Q_INVOKABLE void setConfirmed(const QString &id, bool isConfirmed);
    Q_INVOKABLE void removeFolder(const QString &folder);
    Q_INVOKABLE void addFolder();
    Q_INVOKABLE void openLog() { m_openLog(); }

    /// The path with the user's home folder, when it lies in it, as "~".
    [[nodiscard]] static QString abbreviated(const QString &path, const QString &home);

Q_SIGNALS:
    void workingFolderChanged();

protected:
    void updateAll() override;

private:
    void addFolders(const QStringList &picked);
    void updateChoices();
    void updateSettings();

    const QString m_home;
    const FolderPicker m_pickFolders;
    const std::function<void()> m_openLog;
    ChoiceSetting m_brainModel{"brain.model", "brain.model.hint"};
    ChoiceSetting m_claude{"Claude Code", "brain.claude.hint"};
    ConfirmActions m_confirmActions;
    FolderRows m_folders;
    QString m_workingFolder;
};

} // namespace palomet
