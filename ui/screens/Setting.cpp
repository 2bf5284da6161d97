#include "ui/screens/Setting.h"

#include "localization/Localization.h"

namespace palomet {

Setting::Texts::Texts(const char *name)
    : title(QString::fromLatin1(name))
    , hint(title + QStringLiteral(".hint"))
    , placeholder(title + QStringLiteral(".placeholder")) {}

Setting::Texts::Texts(const char *titleKey, const char *hintKey, const char *placeholderKey)
    : title(QString::fromLatin1(titleKey))
    , hint(QString::fromLatin1(hintKey))
    , placeholder(QString::fromLatin1(placeholderKey)) {}

Setting::Setting(SettingGroup &group, QString key, Texts texts, Content content)
    : QObject(&group)
    , m_screen(group.screen())
    , m_key(std::move(key))
    , m_texts(std::move(texts))
    , m_content(content) {
    connect(&m_screen, &Screen::activated, this, [this] { update(); });
    follow(&PalometModel::snapshotChanged, [this] { update(); });
    follow(&PalometModel::applyingChanged, [this] { update(); });
}

QString Setting::title() const {
    return L(m_texts.title);
}

QString Setting::hint() const {
    return m_texts.hint.isEmpty() ? QString() : L(m_texts.hint);
}

void Setting::setHintKey(const char *key) {
    assign(m_texts.hint, QString::fromLatin1(key));
}

} // namespace palomet
