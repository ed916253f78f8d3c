// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "samples/Waveform.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <deque>
#include <map>
#include <memory>
#include <tuple>

namespace tavrel {

// Reads waveforms off the window's thread, the one that was asked for last, and keeps them. A file that has
// changed is read again.
class WaveformCache : public QObject
{
    Q_OBJECT

public:
    using Entry = std::shared_ptr<const Result<Waveform>>;

    WaveformCache();
    WaveformCache(const WaveformCache&) = delete;
    WaveformCache& operator=(const WaveformCache&) = delete;
    ~WaveformCache() override;

    // The waveform of the file; null while it is being read, and ready() tells when it is there.
    Entry get(const std::filesystem::path& file);

Q_SIGNALS:
    void ready();

private:
    struct Key
    {
        std::filesystem::path file;
        std::uintmax_t size = 0;
        std::filesystem::file_time_type modified;

        friend bool operator==(const Key&, const Key&) = default;
        bool operator<(const Key& other) const
        {
            return std::tie(file, size, modified) < std::tie(other.file, other.size, other.modified);
        }
    };

    void startReading(const Key& key);
    void keep(const Key& key, Entry entry);

    std::map<Key, Entry> m_kept;
    std::deque<Key> m_order; // the oldest first
    Key m_reading;
    std::shared_ptr<std::atomic<bool>> m_stop; // of the one that is being read
    QThreadPool m_threads;
};

} // namespace tavrel
