// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/WaveformCache.h"

#include "base/FailureTexts.h"

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mostKept = 500;

Result<Waveform> readOrFail(const fs::path& file, const std::atomic<bool>& stop)
{
    try {
        return readWaveform(file, stop);
    } catch (const std::bad_alloc&) {
        return cannotRead(file, std::make_error_code(std::errc::not_enough_memory));
    }
}

} // namespace

WaveformCache::WaveformCache()
{
    m_threads.setMaxThreadCount(1);
}

WaveformCache::~WaveformCache()
{
    if (m_stop) {
        *m_stop = true;
    }
    m_threads.waitForDone();
}

WaveformCache::Entry WaveformCache::get(const fs::path& file)
{
    std::error_code error;
    Key key{file, fs::file_size(file, error), {}};
    key.modified = fs::last_write_time(file, error);
    if (const auto found = m_kept.find(key); found != m_kept.end()) {
        return found->second;
    }
    if (!m_stop || m_reading != key) {
        startReading(key);
    }
    return nullptr;
}

void WaveformCache::startReading(const Key& key)
{
    if (m_stop) {
        *m_stop = true;
    }
    m_reading = key;
    m_stop = std::make_shared<std::atomic<bool>>(false);
    m_threads.start([this, key, stop = m_stop] {
        if (*stop) {
            return;
        }
        auto entry = std::make_shared<const Result<Waveform>>(readOrFail(key.file, *stop));
        QMetaObject::invokeMethod(this, [this, key, stop, entry] {
            if (!*stop) {
                keep(key, entry);
            }
        });
    });
}

void WaveformCache::keep(const Key& key, Entry entry)
{
    m_stop.reset();
    m_kept[key] = std::move(entry);
    m_order.push_back(key);
    if (m_order.size() > mostKept) {
        m_kept.erase(m_order.front());
        m_order.pop_front();
    }
    Q_EMIT ready();
}

} // namespace tavrel
