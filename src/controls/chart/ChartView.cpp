#include "controls/chart/ChartView.h"

#include "controls/chart/ChartPalette.h"
#include "controls/list/ReportAccess.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace tessel {

namespace {
constexpr int kMargin = 8;
constexpr int kFocusWidth = 2;

QAccessibleInterface* makeAccess(const QString& className, QObject* object) {
    auto* const view = className == QLatin1String(ChartView::staticMetaObject.className())
                           ? qobject_cast<ChartView*>(object)
                           : nullptr;
    return view == nullptr ? nullptr : new ReportAccess(view);
}

void installAccess() {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(makeAccess);
        return true;
    }();
}
} // namespace

class ChartModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    ChartSeries series;

    void take(const ChartSeries& other) {
        beginResetModel();
        series = other;
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(series.points.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 2; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) {
            return {};
        }
        const ChartPoint& point = series.points[static_cast<std::size_t>(index.row())];
        return index.column() == 0 ? point.name : point.text;
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) {
            return {};
        }
        return section == 0 ? series.nameCaption : series.valueCaption;
    }
};

ChartView::ChartView(QWidget* parent) : QAbstractItemView(parent), m_model(new ChartModel(this)) {
    installAccess();
    setModel(m_model);
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    auto* const copyAction = new QAction(tr("&Copy the numbers"), this);
    copyAction->setObjectName(QStringLiteral("mnuCopyChart"));
    copyAction->setShortcut(QKeySequence::Copy);
    copyAction->setShortcutContext(Qt::WidgetShortcut);
    connect(copyAction, &QAction::triggered, this, &ChartView::copy);
    addAction(copyAction);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void ChartView::setSeries(const ChartSeries& series) {
    const int current = currentIndex().row();
    m_hovered = -1;
    m_model->take(series);
    const auto marked = std::find_if(series.points.begin(), series.points.end(),
                                     [](const ChartPoint& point) { return point.marked; });
    const int wanted = marked != series.points.end() ? static_cast<int>(marked - series.points.begin())
                                                     : std::min(current, count() - 1);
    setCurrentIndex(m_model->index(std::max(0, wanted), 0));
    setAccessibleName(QString(series.title).replace(u'\n', u' '));
    updateGeometry();
    viewport()->update();
}

const ChartSeries& ChartView::series() const {
    return m_model->series;
}

void ChartView::setChartPalette(const QString& name) {
    m_palette = name;
    viewport()->update();
}

void ChartView::setEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
}

QString ChartView::copyText() const {
    const ChartSeries& shown = series();
    QString text = shown.title + u'\n' + shown.nameCaption + u'\t' + shown.valueCaption + u'\n';
    for (const ChartPoint& point : shown.points) {
        text += point.name + u'\t' + point.text + u'\n';
    }
    return text;
}

void ChartView::copy() const {
    QGuiApplication::clipboard()->setText(copyText());
}

int ChartView::count() const {
    return m_model->rowCount();
}

const ChartPoint& ChartView::point(int index) const {
    return series().points[static_cast<std::size_t>(index)];
}

QColor ChartView::color(int index) const {
    return chartColor(m_palette, index, palette().color(QPalette::Base));
}

int ChartView::shownPoint() const {
    return m_hovered >= 0 ? m_hovered : hasFocus() ? currentIndex().row() : -1;
}

QString ChartView::pointText(int index) const {
    return point(index).name + QLatin1String(": ") + point(index).text;
}

QFont ChartView::titleFont() const {
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

int ChartView::titleLines() const {
    return static_cast<int>(series().title.count(u'\n')) + 1;
}

QRect ChartView::room() const {
    return viewport()->rect().adjusted(
        kMargin, kMargin + titleLines() * QFontMetrics(titleFont()).lineSpacing() + kMargin / 2, -kMargin,
        -kMargin);
}

QSize ChartView::sizeHint() const {
    return leastRoom() + QSize(2 * kMargin + 2 * frameWidth(),
                               2 * kMargin + titleLines() * QFontMetrics(titleFont()).lineSpacing());
}

QModelIndex ChartView::indexAt(const QPoint& place) const {
    const int found = pointAt(place, room());
    return found < 0 ? QModelIndex() : m_model->index(found, 0);
}

QRect ChartView::visualRect(const QModelIndex& index) const {
    return index.isValid() ? pointRect(index.row(), room()) : QRect();
}

void ChartView::scrollTo(const QModelIndex&, ScrollHint) {}

bool ChartView::event(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
    }
    return QAbstractItemView::event(event);
}

bool ChartView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        setHovered(-1);
    } else if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = indexAt(help->pos());
        if (index.isValid()) {
            QToolTip::showText(help->globalPos(), pointText(index.row()).toHtmlEscaped(), viewport(),
                               visualRect(index));
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return QAbstractItemView::viewportEvent(event);
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    const bool enter =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (enter && currentIndex().isValid()) {
        emit pointChosen(currentIndex().row());
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        event->ignore(); // it closes the window
        return;
    }
    QAbstractItemView::keyPressEvent(event);
}

void ChartView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    if (event->button() == Qt::LeftButton && index.isValid()) {
        setCurrentIndex(index);
        emit pointChosen(index.row());
    }
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
    setHovered(pointAt(event->pos(), room()));
}

void ChartView::setHovered(int point) {
    if (point != m_hovered) {
        m_hovered = point;
        viewport()->update();
    }
}

void ChartView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);
    viewport()->update();
}

QModelIndex ChartView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    if (count() == 0) {
        return {};
    }
    const int current = std::max(0, currentIndex().row());
    const auto target = [&] {
        switch (action) {
        case MoveHome:
            return 0;
        case MoveEnd:
            return count() - 1;
        case MoveLeft:
        case MoveUp:
        case MovePrevious:
            return current - 1;
        case MovePageUp:
            return current - pageStep();
        case MovePageDown:
            return current + pageStep();
        case MoveRight:
        case MoveDown:
        case MoveNext:
            break;
        }
        return current + 1;
    };
    return m_model->index(std::clamp(target(), 0, count() - 1), 0);
}

void ChartView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), kFocusWidth));
        painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
    }
    painter.setPen(palette().color(QPalette::Text));
    painter.setFont(titleFont());
    const QFontMetrics metrics(titleFont());
    QRect line(kMargin, kMargin, viewport()->width() - 2 * kMargin, metrics.lineSpacing());
    for (const QString& text : series().title.split(u'\n')) {
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(text.trimmed(), Qt::ElideRight, line.width()));
        painter.setFont(font());
        line.translate(0, metrics.lineSpacing());
    }
    painter.setFont(font());
    const bool anything = std::any_of(series().points.begin(), series().points.end(),
                                      [](const ChartPoint& point) { return point.value > 0; });
    paintPoints(painter, room());
    if (!anything) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(room(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
    }
}

} // namespace tessel
