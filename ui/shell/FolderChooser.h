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
        QString acceptLabel; ///< What its button says.
        QString home;        ///< Where it begins.
        quintptr owner = 0;  ///< The window that it stands in front of, as the toolkit names it; 0 without one.
    };

    virtual ~FolderChooser() = default;

    /// Shows the dialog. `picked` gets the folders, those that exist, once the user has chosen some; `missing` is
    /// called, now or later, when the desktop has no such dialog. One of them is called at most, and none when the user
    /// cancels. While a dialog is open, another request is ignored.
    virtual void ask(const Request &request, std::function<void(const QStringList &folders)> picked,
                     std::function<void()> missing) = 0;
};

} // namespace palomet
