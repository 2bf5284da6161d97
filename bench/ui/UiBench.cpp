#include "bench/support/Row.h"
#include "localization/Localization.h"
#include "model/Format.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"
#include "tests/support/noScreen.h"
#include "ui/Ui.h"
#include "ui/kit/Kit.h"
#include "ui/shell/MacWindow.h"

#include <QApplication>
#include <QQmlEngine>
#include <QSettings>
#include <QTemporaryDir>

#include <ctime>
#include <random>

// The window's cost for the main thread: a refresh that brings one row more, and level events. Each figure stands
// beside its floor, taken in the same run. The window is drawn by the processor into memory.

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;

namespace {

class Allowed final : public MicrophonePermission {
public:
    [[nodiscard]] MicrophoneStatus status() const override { return MicrophoneStatus::Authorized; }
    void request(std::function<void()> answered) override { answered(); }
};

/// The window on the now pane, and a backend that sends it events.
struct Desk {
    Desk() {
        backend.on("/events", [](auto exchange) { exchange->beginEvents(); });
        Ui::install(engine, QStringLiteral(PALOMET_BINARY_DIR "/resources"));
        window = std::make_unique<MacWindow>(engine, app, scheduler, nullptr);
        window->bringToFront();
    }

    ManualScheduler scheduler;
    Allowed permission;
    ScriptedBackend backend;
    PalometModel model{scheduler, permission, backend.base()};
    QTemporaryDir folder;
    QSettings file{folder.filePath(QStringLiteral("palomet.conf")), QSettings::IniFormat};
    Shortcuts shortcuts{file};
    NoKeyboardLayout layout;
    Navigation navigation;
    AppView app{model, navigation, shortcuts, layout, {.version = {}, .home = {}}, {}};
    QQmlEngine engine;
    std::unique_ptr<MacWindow> window;
};

std::shared_ptr<const Snapshot> snapshot(const char *state, int rows) {
    auto made = std::make_shared<Snapshot>();
    made->state = QString::fromUtf8(state);
    for (int i = 0; i < rows; ++i)
        made->conversation.rows.push_back(
            {.role = i % 2 ? QStringLiteral("assistant") : QStringLiteral("user"),
             .text = QStringLiteral("Turn %1, and what was said in it. ").arg(i).repeated(1 + i % 7),
             .at = 1'800'000'000'000.0 + i,
             .durationMs = 1'500.0,
             .isOpen = {}});
    return made;
}

void settle() {
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
}

/// Milliseconds of the main thread from a snapshot to the window that shows it.
double refresh(Desk &desk, std::shared_ptr<const Snapshot> next) {
    settle();
    const auto begin = std::chrono::steady_clock::now();
    desk.model.setSnapshot(std::move(next));
    [[maybe_unused]] const auto picture = desk.window->grabWindow();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

bench::Sample measureRefreshes(Desk &desk, int rows, bool isChanging) {
    constexpr int rounds = 200;
    // Made anew each time, as a decoder makes them: nothing is shared with the snapshot before.
    bench::Sample sample;
    desk.model.setSnapshot(snapshot("waiting", rows));
    settle();
    for (int i = 0; i < rounds; ++i)
        sample.add(refresh(desk, snapshot("waiting", rows + (isChanging ? i + 1 : 0))));
    return sample;
}

/// Ten turns, the first of which is as long as that: of words, or without a blank.
std::shared_ptr<const Snapshot> longSnapshot(int words, bool isBlank, int turn) {
    auto made = std::make_shared<Snapshot>(*snapshot("waiting", 10));
    made->conversation.rows.front().text =
        (isBlank ? QStringLiteral("word ") : QStringLiteral("words")).repeated(words);
    // In sight, and another each time.
    made->conversation.rows.push_back(made->conversation.rows.front());
    made->conversation.rows.back().text.prepend(QString::number(turn));
    return made;
}

bench::Sample measureLongTexts(Desk &desk, int words, bool isBlank) {
    constexpr int rounds = 10;
    bench::Sample sample;
    desk.model.setSnapshot(snapshot("waiting", 10));
    for (int i = 0; i < rounds; ++i)
        sample.add(refresh(desk, longSnapshot(words, isBlank, i)));
    return sample;
}

/// The share of a core that thirty level events a second cost, in per cent.
double measureLevels(Desk &desk, const char *state) {
    desk.model.setSnapshot(snapshot(state, 12));
    settle();
    std::mt19937 random(1);
    std::uniform_real_distribution<double> level(0, 0.5);
    constexpr auto span = 10s;
    const auto begin = std::clock();
    QTimer sender;
    QObject::connect(&sender, &QTimer::timeout, &sender,
                     [&] { desk.backend.last("/events")->event("level", QByteArray::number(level(random))); });
    sender.start(33ms);
    QTimer end;
    end.setSingleShot(true);
    end.start(span);
    while (end.isActive())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return 100.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC /
           std::chrono::duration<double>(span).count();
}

} // namespace

int main(int argc, char **argv) {
    test::useNoScreen();
    QApplication application(argc, argv);
    const auto resources = QStringLiteral(PALOMET_BINARY_DIR "/resources");
    Kit::registerFonts(resources);
    Localization::load(resources, {QStringLiteral("en")});
    Desk desk;
    desk.model.start();
    while (!desk.backend.last("/events"))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);

    const auto still = measureRefreshes(desk, 10, false).percentile(0.5);
    const auto printRefresh = [&](const char *what, const bench::Sample &sample, std::optional<double> reach) {
        bench::print({what, "drawing, nothing changed", still, sample.percentile(0.5) - still, reach});
    };
    printRefresh("window: a refresh with one row more of 10, less drawing, p50", measureRefreshes(desk, 10, true), {});
    printRefresh("window: a refresh of 10,000 rows, nothing changed, less drawing, p50",
                 measureRefreshes(desk, 10'000, false), {});
    printRefresh("window: a refresh with one row more of 10,000, less drawing, p50",
                 measureRefreshes(desk, 10'000, true), 4);

    constexpr int megabyte = 200'000;
    bench::print({"window: a text of 1 MB without a blank comes, p50", "one of 10 KB, of words",
                  measureLongTexts(desk, megabyte / 100, true).percentile(0.5),
                  measureLongTexts(desk, megabyte, false).percentile(0.5), 50});

    const auto shown = measureLevels(desk, "hearing");
    const auto unmoved = measureLevels(desk, "waiting");
    desk.window->hide();
    const auto hidden = measureLevels(desk, "hearing");
    const std::string floor = "the same while nothing shows them";
    bench::print({"window: 30 levels a second on the now pane", floor, unmoved, shown, 8, "% of a core"});
    // The stream and its parser remain.
    bench::print({"window: 30 levels a second, window hidden", floor, unmoved, hidden, 1.1 * unmoved, "% of a core"});
    return 0;
}
