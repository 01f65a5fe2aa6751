#include "engine/mainwindow/mod_Shell.h"

#include "engine/alerts/mod_Inbox.h"
#include "engine/core/mod_Settings.h"
#include "engine/presence/mod_LocationViews.h"

#include <algorithm>

namespace tessel {

namespace {
constexpr int kHomeOrders = 2;
constexpr int kStatusOrders = 3;
constexpr int kFavoriteOrders = 2;

const ViewRow* findView(int id) {
    const auto* const found = std::find_if(
        kViews.begin(), kViews.end(), [id](const ViewRow& row) { return static_cast<int>(row.view) == id; });
    return found == kViews.end() ? nullptr : found;
}
} // namespace

Shell::Shell(Settings& settings, LocationViews& views, const Inbox& inbox, Clock& clock)
    : tmrTime(clock, "tmrTime", 1000, Timer::Kind::Repeating,
              [this] {
                  // A tick may come late, or the computer have slept, so the date tells and not the time.
                  if (m_clock.date() != m_day) {
                      m_day = m_clock.date();
                      emit dayBegan();
                  }
              }),
      m_settings(settings), m_views(views), m_inbox(inbox), m_clock(clock), m_day(clock.date()) {}

void Shell::SetTabView(int id) {
    const ViewRow* const row = findView(id);
    if (row == nullptr) {
        return;
    }
    emit ClearSearchBox();
    m_view = row->view;
    m_views.setStatusTabCurrent(m_view == View::Status);
    if (row->stored) {
        m_settings.NAV_1.set(id);
    }
    emit viewChanged();
}

const ViewRow& Shell::viewRow() const {
    return *findView(static_cast<int>(m_view));
}

QString Shell::tabCaption(int id) const {
    const ViewRow* const row = findView(id);
    if (row == nullptr) {
        return {};
    }
    if (row->view == View::Inbox) {
        return m_inbox.caption();
    }
    const int rows = m_rows[static_cast<std::size_t>(row - kViews.data())];
    const QString caption = QLatin1String(row->caption);
    return rows > 0 ? caption + QStringLiteral("(%1)").arg(rows) : caption;
}

void Shell::CountLocationsTabs() {
    m_rows = {m_views.rptEndpoints.count(), m_views.statusCount(), m_views.rptFavorites.count(), 0};
    emit tabsCounted();
}

void Shell::ClearLocationsTabsCount() {
    m_rows.fill(0);
    emit tabsCounted();
}

int Shell::storedView() const {
    const ViewRow* const row = findView(m_settings.NAV_1());
    return row != nullptr && row->stored ? m_settings.NAV_1() : static_cast<int>(View::Home);
}

bool Shell::previewMode() const {
    return m_settings.Settings_PV();
}

void Shell::SetPreviewMode() {
    m_settings.Settings_PV.set(!previewMode());
    emit previewModeChanged();
}

int Shell::reportFont() const {
    return std::clamp(m_settings.Fonts_EVFS(), kSmallestFont, kLargestFont);
}

void Shell::setReportFont(int points) {
    if (points >= kSmallestFont && points <= kLargestFont) {
        m_settings.Fonts_EVFS.set(points);
        emit reportFontChanged();
    }
}

void Shell::IncreaseReportFont() {
    setReportFont(reportFont() + 1);
}

void Shell::DecreaseReportFont() {
    setReportFont(reportFont() - 1);
}

QString Shell::increaseTip() const {
    return QStringLiteral("Increase Font Size (%1)").arg(reportFont());
}

QString Shell::decreaseTip() const {
    return QStringLiteral("Decrease Font Size (%1)").arg(reportFont());
}

void Shell::SetSort_EndpointView(int order) {
    if (order >= 0 && order < kHomeOrders) {
        m_settings.Settings_SORTEV.set(order);
        emit sortChanged();
    }
}

void Shell::SetSort_StatusView(int order) {
    if (order >= 0 && order < kStatusOrders) {
        m_settings.Settings_SORTSV.set(order);
        emit sortChanged();
    }
}

void Shell::SetSort_FavoriteView(int order) {
    if (order >= 0 && order < kFavoriteOrders) {
        m_settings.Settings_SORTFV.set(order);
        emit sortChanged();
    }
}

void Shell::setDoorbellOffered(bool offered) {
    m_settings.Settings_DBNAV.set(offered);
    emit offersChanged();
}

void Shell::toggleOnTop() {
    m_settings.Settings_ONTOP.set(!m_settings.Settings_ONTOP());
    emit onTopChanged();
}

} // namespace tessel
