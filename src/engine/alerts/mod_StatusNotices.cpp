#include "engine/alerts/mod_StatusNotices.h"

#include "engine/alerts/mod_Popups.h"
#include "engine/alerts/mod_Tones.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Settings.h"
#include "engine/presence/cFavoriteLookup.h"
#include "engine/presence/mod_LocationViews.h"

namespace tessel {

namespace {
// Tones of statuses are files of that name with this behind it.
const QString kToneSuffix = QStringLiteral("A");
const QString kStatusTone = QStringLiteral("Status");
} // namespace

void StatusNotices::popup(const QString& label, const QString& text, const QString& time,
                          const QString& SID) {
    m_popups.ShowNotifyPopup(
        {PopupTheme::Blue, label, text, time, SID, kProductName, NoticeKind::Status, label});
}

void StatusNotices::statusSet(const StatusNews& news) {
    const bool favorite = news.favoriteSlot >= 0;
    if (m_own.doNotDisturb || (!favorite && m_settings.Settings_SNF())) {
        return;
    }
    if (m_settings.Settings_SNP() && (!favorite || m_favorites.wantsPopup(news.favoriteSlot))) {
        popup(news.location, news.status, news.statusTime, news.SID);
    }
    if (!m_settings.Settings_SNT() || (favorite && !m_settings.Sound_SC())) {
        return;
    }
    const QString tone = news.tone.isEmpty() && favorite ? m_favorites.toneOf(news.favoriteSlot) : news.tone;
    if (tone.isEmpty()) {
        m_tones.PlayTone(kStatusTone);
    } else {
        m_tones.PlayFavoriteTone(tone + kToneSuffix);
    }
}

void StatusNotices::statusCleared(const QString& SID) {
    if (m_settings.Settings_SNP()) {
        m_popups.closeStatusOf(SID);
    }
}

void StatusNotices::setHere(const QString& text, const QString& tone, const QString& location,
                            const QString& SID) {
    if (m_own.doNotDisturb) {
        return;
    }
    if (m_settings.Settings_SNP()) {
        popup(location, text, m_own.statusTime, SID);
    }
    if (m_settings.Settings_SNT() && !tone.isEmpty()) {
        m_tones.PlayFavoriteTone(tone + kToneSuffix);
    }
}

} // namespace tessel
