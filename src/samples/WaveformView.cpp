// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/WaveformView.h"

#include "samples/SampleConversion.h"
#include "ui/Colours.h"
#include "ui/Text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {

constexpr int textMargin = 4;

} // namespace

WaveformView::WaveformView(const char* name, SamplePlayer& player, std::shared_ptr<WaveformCache> cache)
    : m_player(player), m_cache(std::move(cache))
{
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    constexpr int frame = 30; // ms
    m_moving.setInterval(frame);
    connect(&m_moving, &QTimer::timeout, this, &WaveformView::move);
    connect(m_cache.get(), &WaveformCache::ready, this, &WaveformView::take);
    setLanguage(m_language);
    m_player.observe(*this);
}

WaveformView::~WaveformView()
{
    m_player.forget(*this);
}

void WaveformView::setLanguage(Language language)
{
    m_language = language;
    setToolTip(inLanguage(
        {"A click or Space plays the sample and stops it", "Un clic ou Espace joue le sample et l'arrête"},
        language));
    setAccessibleName(inLanguage({"Picture of the sample", "Image du sample"}, language));
    update();
}

void WaveformView::showFile(const std::filesystem::path& file)
{
    m_file = file;
    m_entry = nullptr;
    update();
    take();
}

// The cache may have read another file, or this one.
void WaveformView::take()
{
    if (m_file.empty() || m_entry) {
        return;
    }
    m_entry = m_cache->get(m_file);
    if (m_entry) {
        update();
        Q_EMIT loaded();
    }
}

const Waveform* WaveformView::waveform() const
{
    return m_entry && *m_entry ? &**m_entry : nullptr;
}

BilingualText WaveformView::facts() const
{
    if (!m_entry) {
        return {};
    }
    return *m_entry ? (*m_entry)->facts() : m_entry->failure().text;
}

bool WaveformView::isReadable() const
{
    return waveform() != nullptr;
}

void WaveformView::play()
{
    if (m_file.empty()) {
        return;
    }
    const Problem problem = m_player.play(m_file);
    Q_EMIT told(problem ? problem->text : BilingualText());
}

void WaveformView::stop()
{
    m_player.stop();
}

void WaveformView::toggle()
{
    if (isPlaying()) {
        stop();
    } else {
        play();
    }
}

void WaveformView::playbackStarted(const std::filesystem::path& file)
{
    m_playedFile = file;
    m_since.start();
    m_moving.start();
    update();
}

void WaveformView::playbackStopped()
{
    m_moving.stop();
    update();
}

void WaveformView::move()
{
    const bool isShown = m_playedFile == m_file;
    const Waveform* const shown = isShown ? waveform() : nullptr;
    const bool isOver = shown != nullptr ? static_cast<double>(m_since.elapsed()) > shown->seconds * 1000
                                         : m_entry && !*m_entry;
    if (isShown && isOver) {
        playbackStopped();
    } else if (isShown) {
        update();
    }
}

QSize WaveformView::sizeHint() const
{
    return {200, 64};
}

void WaveformView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        toggle();
    } else {
        QWidget::mousePressEvent(event);
    }
}

void WaveformView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        toggle();
    } else {
        QWidget::keyPressEvent(event);
    }
}

int WaveformView::columnAt(double seconds, const Waveform& waveform) const
{
    return waveform.seconds > 0 ? static_cast<int>(std::lround(seconds / waveform.seconds * width())) : 0;
}

void WaveformView::paintColumns(QPainter& painter, const Waveform& waveform)
{
    const auto count = static_cast<qint64>(waveform.columns.size());
    if (count == 0) {
        return;
    }
    const qreal middle = height() / 2.0;
    const qreal scale = middle - 1;
    for (int x = 0; x < width(); ++x) {
        const qint64 first = std::min(x * count / width(), count - 1);
        const qint64 end = std::clamp((x + 1) * count / width(), first + 1, count);
        Waveform::Column all;
        for (qint64 i = first; i < end; ++i) {
            const Waveform::Column& column = waveform.columns[static_cast<std::size_t>(i)];
            all.lowest = std::min(all.lowest, column.lowest);
            all.highest = std::max(all.highest, column.highest);
        }
        const auto y = [&](float level) {
            return middle - scale * static_cast<qreal>(std::clamp(level, -1.0F, 1.0F));
        };
        painter.drawLine(QPointF(x + 0.5, y(all.highest)), QPointF(x + 0.5, y(all.lowest)));
    }
}

void WaveformView::paintSilence(QPainter& painter, const Waveform& waveform)
{
    QColor veil = mutedColour(paintedWith(palette()));
    veil.setAlphaF(0.3F);
    const int start = columnAt(waveform.silenceAtStart, waveform);
    const int end = columnAt(waveform.seconds - waveform.silenceAtEnd, waveform);
    painter.fillRect(QRect(0, 0, start, height()), veil);
    painter.fillRect(QRect(end, 0, width() - end, height()), veil);
}

void WaveformView::paintLength(QPainter& painter, const Waveform& waveform)
{
    const QString length =
        inLanguage(decimalText(waveform.seconds, 2) + BilingualText::same(" s"), m_language);
    const QRect box = painter.fontMetrics()
                          .boundingRect(rect().adjusted(textMargin, textMargin / 2, -textMargin, 0),
                                        Qt::AlignRight | Qt::AlignTop, length)
                          .adjusted(-textMargin, 0, textMargin, 0);
    QColor ground = palette().color(QPalette::Base);
    ground.setAlphaF(0.75F);
    painter.fillRect(box, ground);
    painter.drawText(box, Qt::AlignCenter, length);
}

void WaveformView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const ColourPair colours = paintedWith(palette());
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Text));
    if (const Waveform* const shown = waveform()) {
        paintSilence(painter, *shown);
        paintColumns(painter, *shown);
        paintLength(painter, *shown);
        if (isPlaying()) {
            painter.setPen(QPen(markColour(colours), 2));
            const int x = columnAt(static_cast<double>(m_since.elapsed()) / 1000, *shown);
            painter.drawLine(x, 0, x, height());
        }
    }
    if (hasFocus()) {
        painter.setPen(markColour(colours));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

} // namespace tavrel
