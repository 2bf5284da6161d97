#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace palomet {

/// The desktop's own dialog for choosing folders, several at once. Main thread only.
class FolderChooser {
public:
    struct Request {
        QString title;
        QString acceptLabel; ///< The text of its button.
        QString home;        ///< The folder that it begins in.
        quintptr owner = 0;  ///< The toolkit's id of the window that it stands in front of; 0 without one.
    };

    virtual ~FolderChooser() = default;

    /// Shows the dialog. `picked` gets the existing folders that the user has chosen; `missing` is called, at once or
    /// later, when the desktop has no such dialog. At most one of them is called, and none when the user cancels. While
    /// a dialog is open, another request is ignored.
    virtual void ask(const Request &request, std::function<void(const QStringList &folders)> picked,
                     std::function<void()> missing) = 0;
};

} // namespace palomet
