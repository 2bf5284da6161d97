#include "app/historyMain.h"

#include "app/HistoryList.h"
#include "app/Resources.h"
#include "base/PeerCheck.h"
#include "base/QtScheduler.h"
#include "command/fail.h"
#include "localization/Localization.h"
#include "model/Documents.h"
#include "model/HttpClient.h"
#include "model/PalometModel.h"
#include "platform/linux/KernelSocketOwner.h"

#include <QCoreApplication>

#include <cstdio>

namespace palomet {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// Somebody waits at a terminal.
constexpr auto timeout = 10s;

int show(const std::optional<JsonText> &body, bool isStranger, bool isJson) {
    if (isStranger)
        return fail(u"the backend's port is held by another user's program"_s, 1);
    if (!body)
        return fail(u"no backend answers"_s, 1);
    const auto history = decodeHistory(*body);
    if (!history)
        return fail(u"the backend's list of conversations cannot be read: "_s + history.reason(), 1);
    const auto printed = isJson ? historyList::json(*history).toUtf8() : historyList::text(*history).toLocal8Bit();
    if (std::puts(printed.constData()) < 0 || std::fflush(stdout) != 0)
        return fail(u"the conversations cannot be written"_s, 1);
    return 0;
}

} // namespace

int runHistory(bool isJson, int argumentCount, char **arguments) {
    const QCoreApplication application(argumentCount, arguments);
    const auto resources = resourceFolder(QCoreApplication::applicationDirPath()).value_or(QString());
    localization::load(resources, localization::preferredLanguages());
    QtScheduler scheduler;
    bool isStranger = false;
    PeerCheck check(KernelSocketOwner(), [&isStranger] { isStranger = true; });
    HttpClient http(hudBase(), scheduler, [&check](quint16 port, quint16 from) { return check.admits(port, from); });
    const auto exchange = http.get(u"history"_s, timeout, [&](const std::optional<JsonText> &body) {
        QCoreApplication::exit(show(body, isStranger, isJson));
    });
    return QCoreApplication::exec();
}

} // namespace palomet
