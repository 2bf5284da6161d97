#pragma once

#include <QObject>
#include <QtQml/qqml.h>

#include <array>
#include <optional>

namespace palomet {

/// The pane that the window shows. The window and everything that opens it share one object. Main thread only.
class Navigation : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, the program's.")
    Q_PROPERTY(Pane pane READ pane WRITE setPane NOTIFY paneChanged FINAL)

public:
    enum class Pane { Now, History, Listening, Voice, Brain };
    Q_ENUM(Pane)

    [[nodiscard]] Pane pane() const { return m_pane; }
    void setPane(Pane pane);

Q_SIGNALS:
    void paneChanged();

private:
    Pane m_pane = Pane::Now;
};

using Pane = Navigation::Pane;

/// In the order of the sidebar.
inline constexpr std::array allPanes{Pane::Now, Pane::History, Pane::Listening, Pane::Voice, Pane::Brain};

/// The pane of exactly that raw value, "now"; none for any other word.
[[nodiscard]] std::optional<Pane> paneFrom(QStringView rawValue);
[[nodiscard]] QString rawValue(Pane pane);
/// Its group in the sidebar, "conversation" or "settings".
[[nodiscard]] QString group(Pane pane);
[[nodiscard]] QString title(Pane pane);
[[nodiscard]] QString subtitle(Pane pane);
/// The name of its icon.
[[nodiscard]] QString icon(Pane pane);

} // namespace palomet
