#pragma once

#include "app/Notifier.h"

#include <map>
#include <vector>

namespace palomet::test {

/// A desktop that shows notices, and keeps what was ever shown.
class FakeNotifier final : public Notifier {
public:
    void show(quint32 id, const Notice &notice) override {
        showing[id] = notice;
        said.push_back(notice.title);
    }
    void withdraw(quint32 id) override { showing.erase(id); }

    /// The user clicks the only one that shows.
    void choose(const QString &activation = {}) { onChosen(showing.begin()->first, activation); }

    std::map<quint32, Notice> showing;
    std::vector<QString> said;
};

} // namespace palomet::test
