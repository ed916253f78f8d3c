// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "samples/SamplePlayer.h"
#include "samples/WaveformCache.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <filesystem>
#include <memory>

namespace tavrel {

// A small picture of one sound: its peaks, its length, the silence at its ends, and a line that moves while
// it plays. A click or Space plays it, and stops it.
class WaveformView : public QWidget, private PlaybackObserver
{
    Q_OBJECT

public:
    WaveformView(const char* name, SamplePlayer& player, std::shared_ptr<WaveformCache> cache);
    WaveformView(const WaveformView&) = delete;
    WaveformView& operator=(const WaveformView&) = delete;
    ~WaveformView() override;

    // Paints with the colours of paintWith() on it.
    void setLanguage(Language language);

    // An empty path shows nothing. The picture comes when the file has been read.
    void showFile(const std::filesystem::path& file);
    const std::filesystem::path& file() const { return m_file; }
    // What the file says, or why it says nothing; empty while it is being read.
    BilingualText facts() const;
    bool isReadable() const;

    // Whoever started it: the line follows the player.
    bool isPlaying() const { return m_moving.isActive() && m_playedFile == m_file; }
    void play();
    void stop();

    QSize sizeHint() const override;

Q_SIGNALS:
    void loaded();
    // Why nothing sounds; empty when it does.
    void told(const BilingualText& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void playbackStarted(const std::filesystem::path& file) override;
    void playbackStopped() override;
    const Waveform* waveform() const;
    void take();
    void move();
    void toggle();
    void paintColumns(QPainter& painter, const Waveform& waveform);
    void paintSilence(QPainter& painter, const Waveform& waveform);
    void paintLength(QPainter& painter, const Waveform& waveform);
    int columnAt(double seconds, const Waveform& waveform) const;

    SamplePlayer& m_player;
    std::shared_ptr<WaveformCache> m_cache;
    Language m_language = Language::English;
    std::filesystem::path m_file;
    std::filesystem::path m_playedFile;
    WaveformCache::Entry m_entry;
    QTimer m_moving;
    QElapsedTimer m_since;
};

} // namespace tavrel
