#include "model/Format.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"
#include "ui/Ui.h"
#include "ui/kit/Kit.h"
#include "ui/localization/Localization.h"
#include "ui/shell/MacWindow.h"

#include <QApplication>
#include <QQmlEngine>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <random>

// What the window costs the main thread: a refresh that brings one row more, and level events. Each figure stands
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

struct Spread {
    double median;
    double high;
};

Spread spread(std::vector<double> figures) {
    std::ranges::sort(figures);
    return {figures[figures.size() / 2], figures[figures.size() * 99 / 100]};
}

Spread measureRefreshes(Desk &desk, int rows, bool isChanging) {
    constexpr int rounds = 200;
    std::vector<std::shared_ptr<const Snapshot>> snapshots;
    // Made anew each time, as a decoder makes them: nothing is shared with the snapshot before.
    std::vector<double> figures;
    desk.model.setSnapshot(snapshot("waiting", rows));
    settle();
    for (int i = 0; i < rounds; ++i)
        figures.push_back(refresh(desk, snapshot("waiting", rows + (isChanging ? i + 1 : 0))));
    return spread(std::move(figures));
}

/// The share of a core that thirty level events a second cost, in per cent.
double measureLevels(Desk &desk, const char *state, bool isSending) {
    desk.model.setSnapshot(snapshot(state, 12));
    settle();
    std::mt19937 random(1);
    std::uniform_real_distribution<double> level(0, 0.5);
    constexpr auto span = 10s;
    const auto begin = std::clock();
    QTimer sender;
    QObject::connect(&sender, &QTimer::timeout, &sender, [&] {
        if (isSending)
            desk.backend.last("/events")->event("level", QByteArray::number(level(random)));
    });
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
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QApplication application(argc, argv);
    const auto resources = QStringLiteral(PALOMET_BINARY_DIR "/resources");
    Kit::registerFonts(resources);
    Localization::load(resources, {QStringLiteral("en")});
    Desk desk;
    desk.model.start();
    while (!desk.backend.last("/events"))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);

    const auto still = measureRefreshes(desk, 10, false);
    const auto few = measureRefreshes(desk, 10, true);
    const auto same = measureRefreshes(desk, 10'000, false);
    const auto many = measureRefreshes(desk, 10'000, true);
    std::printf("drawing the window, nothing changed     p50 %6.2f ms  p99 %6.2f ms\n", still.median, still.high);
    std::printf("one row more of 10                      p50 %6.2f ms  p99 %6.2f ms\n", few.median, few.high);
    std::printf("10,000 rows, nothing changed            p50 %6.2f ms  p99 %6.2f ms\n", same.median, same.high);
    std::printf(
        "one row more of 10,000                  p50 %6.2f ms  p99 %6.2f ms   over drawing %.2f ms, to reach 4\n",
        many.median, many.high, many.median - still.median);

    const auto idle = measureLevels(desk, "hearing", false);
    const auto shown = measureLevels(desk, "hearing", true);
    const auto unmoved = measureLevels(desk, "waiting", true);
    desk.window->hide();
    const auto hidden = measureLevels(desk, "hearing", true);
    std::printf("no events, window shown                 %5.2f %% of a core\n", idle);
    std::printf("30 levels a second, waiting             %5.2f %%   (sender, stream and parser)\n", unmoved);
    std::printf("30 levels a second, hearing             %5.2f %%   to reach 8\n", shown);
    std::printf("30 levels a second, window hidden       %5.2f %%   to reach that of the stream alone\n", hidden);
    return 0;
}
