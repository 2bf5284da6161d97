#include "ui/shell/FolderDialog.h"

#include "localization/Localization.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QFileInfo>
#include <QWindow>

namespace palomet {

void askForFolders(QWindow *owner, const QString &home, std::function<void(const QStringList &)> picked) {
    auto *dialog = new QFileDialog;
    dialog->setWindowTitle(L("brain.addFolder.title"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    // The desktop's own dialogs pick one folder only.
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setDirectory(home);
    dialog->setLabelText(QFileDialog::Accept, L("brain.addFolder.prompt"));
    for (auto *view : dialog->findChildren<QAbstractItemView *>()) {
        if (view->objectName() == u"listView" || view->objectName() == u"treeView")
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    }
    QObject::connect(dialog, &QFileDialog::filesSelected, dialog, [picked = std::move(picked)](QStringList folders) {
        folders.removeIf([](const QString &folder) { return !QFileInfo(folder).isDir(); });
        if (!folders.isEmpty())
            picked(folders);
    });
    dialog->setWindowModality(Qt::ApplicationModal);
    // Made now, so that it can be told whose it is.
    dialog->winId();
    if (owner)
        dialog->windowHandle()->setTransientParent(owner);
    dialog->open();
}

} // namespace palomet
