#include "platform/gnome/GnomeSettings.h"

#include <QLibrary>

#include <gio/gio.h>

#include <span>

namespace palomet {

using namespace Qt::StringLiterals;

/// What we need of it, by its own names.
struct GnomeSettings::Library {
    /// GNOME has this version; it is not linked, for other desktops need none of it.
    QLibrary file{u"gio-2.0"_s, 0};

    template <typename Function>
    Function *find(const char *name) {
        return reinterpret_cast<Function *>(file.resolve(name));
    }

    decltype(g_settings_schema_source_get_default) *defaultSource =
        find<decltype(g_settings_schema_source_get_default)>("g_settings_schema_source_get_default");
    decltype(g_settings_schema_source_lookup) *lookUp =
        find<decltype(g_settings_schema_source_lookup)>("g_settings_schema_source_lookup");
    decltype(g_settings_schema_list_keys) *listKeys =
        find<decltype(g_settings_schema_list_keys)>("g_settings_schema_list_keys");
    decltype(g_settings_schema_get_path) *placeOf =
        find<decltype(g_settings_schema_get_path)>("g_settings_schema_get_path");
    decltype(g_settings_schema_unref) *unrefSchema = find<decltype(g_settings_schema_unref)>("g_settings_schema_unref");
    decltype(g_settings_new_full) *open = find<decltype(g_settings_new_full)>("g_settings_new_full");
    decltype(g_settings_get_value) *get = find<decltype(g_settings_get_value)>("g_settings_get_value");
    decltype(g_object_unref) *unref = find<decltype(g_object_unref)>("g_object_unref");
    decltype(g_variant_is_of_type) *isOf = find<decltype(g_variant_is_of_type)>("g_variant_is_of_type");
    decltype(g_variant_get_strv) *list = find<decltype(g_variant_get_strv)>("g_variant_get_strv");
    decltype(g_variant_get_string) *text = find<decltype(g_variant_get_string)>("g_variant_get_string");
    decltype(g_variant_unref) *unrefValue = find<decltype(g_variant_unref)>("g_variant_unref");
    decltype(g_strfreev) *freeKeys = find<decltype(g_strfreev)>("g_strfreev");
    decltype(g_free) *freeList = find<decltype(g_free)>("g_free");

    [[nodiscard]] bool isThere() const {
        return defaultSource && lookUp && listKeys && placeOf && unrefSchema && open && get && unref && isOf && list &&
               text && unrefValue && freeKeys && freeList;
    }

    [[nodiscard]] QStringList texts(GVariant *value) const;
};

namespace {

/// Nothing, or "/a/b/".
bool isPlace(const QString &path) {
    return path.isEmpty() || (path.startsWith(u'/') && path.endsWith(u'/') && !path.contains(u"//"_s));
}

} // namespace

/// The settings of one schema at one place. It stays: to be made and to go away costs words with the bus.
class GnomeSettings::Group {
public:
    Group(const Library &library, const QString &schema, const QString &path)
        : m_library(library) {
        auto *const source = library.defaultSource();
        m_schema = source == nullptr ? nullptr : library.lookUp(source, schema.toUtf8().constData(), TRUE);
        if (m_schema == nullptr)
            return;
        // The library ends the program when it is asked for a place that there cannot be.
        const bool hasPlace = library.placeOf(m_schema) != nullptr;
        if (hasPlace != path.isEmpty() || !isPlace(path))
            return;
        m_settings = library.open(m_schema, nullptr, path.isEmpty() ? nullptr : path.toUtf8().constData());
        auto *const keys = library.listKeys(m_schema);
        for (auto *const *key = keys; *key != nullptr; ++key)
            m_keys.emplace_back(*key);
        library.freeKeys(keys);
    }
    Group(const Group &) = delete;
    Group &operator=(const Group &) = delete;
    ~Group() {
        if (m_schema == nullptr)
            return;
        if (m_settings != nullptr)
            m_library.unref(m_settings);
        m_library.unrefSchema(m_schema);
    }

    [[nodiscard]] std::vector<Setting> read() const {
        std::vector<Setting> settings;
        for (const auto &key : m_keys) {
            auto *const value = m_library.get(m_settings, key.constData());
            if (auto texts = m_library.texts(value); !texts.isEmpty())
                settings.push_back({QString::fromUtf8(key), std::move(texts)});
            m_library.unrefValue(value);
        }
        return settings;
    }

private:
    const Library &m_library;
    GSettingsSchema *m_schema = nullptr;
    GSettings *m_settings = nullptr;
    std::vector<QByteArray> m_keys;
};

QStringList GnomeSettings::Library::texts(GVariant *value) const {
    if (isOf(value, G_VARIANT_TYPE_STRING) != FALSE)
        return {QString::fromUtf8(text(value, nullptr))};
    if (isOf(value, G_VARIANT_TYPE_STRING_ARRAY) == FALSE)
        return {};
    QStringList texts;
    gsize count = 0;
    auto *const all = list(value, &count);
    for (const auto *one : std::span(all, count))
        texts.append(QString::fromUtf8(one));
    freeList(all);
    return texts;
}

GnomeSettings::GnomeSettings()
    : m_library(std::make_unique<Library>()) {
    if (!m_library->isThere())
        m_library.reset();
}

GnomeSettings::~GnomeSettings() = default;

std::vector<GnomeSettings::Setting> GnomeSettings::read(const QString &schema, const QString &path) {
    if (!m_library)
        return {};
    auto &group = m_groups[{schema, path}];
    if (!group)
        group = std::make_unique<Group>(*m_library, schema, path);
    return group->read();
}

} // namespace palomet
