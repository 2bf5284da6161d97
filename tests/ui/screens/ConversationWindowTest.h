#pragma once

#include "tests/ui/screens/WindowTest.h"

namespace palomet::test {

using namespace Qt::StringLiterals;

inline constexpr double now = 1'800'000'000'000;

/// A turn of that number, its words so many times.
[[nodiscard]] inline Snapshot::Row turn(int number, int words = 3) {
    return {.role = number % 2 == 0 ? u"user"_s : u"assistant"_s,
            .text = u"turn %1 "_s.arg(number).repeated(words),
            .at = now - 1'000'000 + number,
            .durationMs = 1'000,
            .isOpen = {}};
}

/// So many, of different lengths.
[[nodiscard]] inline std::vector<Snapshot::Row> turns(int count) {
    std::vector<Snapshot::Row> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back(turn(i, 1 + i * 7 % 60));
    return rows;
}

/// The window with conversations, and what of them can be seen.
class ConversationWindowTest : public WindowTest {
protected:
    void show(const std::vector<Snapshot::Row> &rows) {
        setState("waiting", [&](Snapshot &snapshot) { snapshot.conversation.rows = rows; });
    }
    [[nodiscard]] QQuickItem *view(const char *page) { return first(page)->property("view").value<QQuickItem *>(); }
    /// The rows that can be seen, from the top.
    [[nodiscard]] QList<QQuickItem *> seen(const char *type) {
        QList<QQuickItem *> seen;
        for (auto *row : all(type)) {
            const auto place = row->mapRectToScene(row->boundingRect());
            if (row->isVisible() && place.bottom() > 144 && place.top() < window->height())
                seen.append(row);
        }
        std::sort(seen.begin(), seen.end(), [](auto *a, auto *b) { return a->y() < b->y(); });
        return seen;
    }
    [[nodiscard]] QQuickItem *row(const QString &words) {
        for (auto *row : all("ConversationRow"))
            if (row->isVisible() && row->property("words") == words)
                return row;
        return nullptr;
    }
    /// Lets the window draw, and so lay out, what has changed.
    void settle() {
        for (int frame = 0; frame < 3; ++frame) {
            window->update();
            QCoreApplication::processEvents();
            [[maybe_unused]] const auto picture = window->grabWindow();
        }
    }
    void wheel(int notches) {
        const QPointF at(700, 400);
        QWheelEvent event(at, window->mapToGlobal(at), {}, {0, notches * 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.get(), &event);
        settle();
    }
};

} // namespace palomet::test
