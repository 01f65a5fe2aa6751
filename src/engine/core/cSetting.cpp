#include "engine/core/cSetting.h"

#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"

#include <cmath>
#include <type_traits>

namespace tessel {

namespace {

struct NamedColor {
    std::string_view name;
    Argb color;
};

// The sixteen names that every list of colours knows.
constexpr NamedColor kNamedColors[] = {
    {"black", argb(0, 0, 0)},      {"silver", argb(192, 192, 192)}, {"gray", argb(128, 128, 128)},
    {"grey", argb(128, 128, 128)}, {"white", argb(255, 255, 255)},  {"maroon", argb(128, 0, 0)},
    {"red", argb(255, 0, 0)},      {"purple", argb(128, 0, 128)},   {"fuchsia", argb(255, 0, 255)},
    {"green", argb(0, 128, 0)},    {"lime", argb(0, 255, 0)},       {"olive", argb(128, 128, 0)},
    {"yellow", argb(255, 255, 0)}, {"navy", argb(0, 0, 128)},       {"blue", argb(0, 0, 255)},
    {"teal", argb(0, 128, 128)},   {"aqua", argb(0, 255, 255)},     {"orange", argb(255, 165, 0)},
};

constexpr std::uint32_t kColorBits = 0xFFFFFFU;

Argb fromRedLowest(std::uint32_t number) {
    return argb(static_cast<int>(number & 0xFFU), static_cast<int>((number >> 8U) & 0xFFU),
                static_cast<int>((number >> 16U) & 0xFFU));
}

QString colorText(Argb color) {
    return u'#' + QString::number(color & kColorBits, 16).rightJustified(6, u'0');
}

QString latin(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

bool toBoolean(const QString& text) {
    const QString bare = text.trimmed();
    const double number = bare.toDouble();
    // "nan" and "inf" read as numbers, too, and mean nothing in a file.
    return bare.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ||
           (std::isfinite(number) && number != 0.0);
}

std::int32_t toNumber(const QString& text) {
    return text.trimmed().toInt();
}

Argb toColor(const QString& text) {
    const QString bare = text.trimmed();
    bool ok = false;
    if (bare.startsWith(u'#')) {
        const std::uint32_t number = bare.size() == 7 ? bare.sliced(1).toUInt(&ok, 16) : 0;
        return ok ? 0xFF000000U | number : kNoColor;
    }
    if (bare.startsWith(QLatin1String("&H"), Qt::CaseInsensitive)) {
        QString digits = bare.sliced(2);
        if (digits.endsWith(u'&')) {
            digits.chop(1);
        }
        const std::uint32_t number = digits.toUInt(&ok, 16);
        return ok ? fromRedLowest(number) : kNoColor;
    }
    const std::uint32_t number = bare.toUInt(&ok);
    if (ok) {
        return fromRedLowest(number);
    }
    for (const auto& [name, color] : kNamedColors) {
        if (bare.compare(latin(name), Qt::CaseInsensitive) == 0) {
            return color;
        }
    }
    return kNoColor;
}

template <typename T> QString Setting<T>::fallback() const {
    return latin(m_key.fallback);
}

template <typename T> bool Setting<T>::read() {
    return take(m_data.ReadSetting(kUserFile, latin(m_key.section), latin(m_key.key), fallback()));
}

template <typename T> bool Setting<T>::take(const QString& text) {
    bool understood = true;
    if constexpr (std::is_same_v<T, bool>) {
        m_value = toBoolean(text);
        const double number = text.trimmed().toDouble(&understood);
        understood = (understood && std::isfinite(number)) || m_value ||
                     text.trimmed().compare(QLatin1String("false"), Qt::CaseInsensitive) == 0;
    } else if constexpr (std::is_same_v<T, std::int32_t>) {
        m_value = toNumber(text);
        text.trimmed().toInt(&understood);
    } else if constexpr (std::is_same_v<T, Argb>) {
        m_value = toColor(text);
        understood = m_value != kNoColor;
        if (!understood) {
            m_value = toColor(fallback());
        }
    } else {
        m_value = text;
    }
    return understood;
}

template <typename T> bool Setting<T>::set(const T& value) {
    m_value = value;
    QString text;
    if constexpr (std::is_same_v<T, bool>) {
        text = value ? QStringLiteral("1") : QStringLiteral("0");
    } else if constexpr (std::is_same_v<T, std::int32_t>) {
        text = QString::number(value);
    } else if constexpr (std::is_same_v<T, Argb>) {
        text = colorText(value);
    } else {
        text = value;
    }
    return m_data.WriteSetting(kUserFile, latin(m_key.section), latin(m_key.key), text);
}

template class Setting<bool>;
template class Setting<std::int32_t>;
template class Setting<QString>;
template class Setting<Argb>;

} // namespace tessel
