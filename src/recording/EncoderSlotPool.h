#pragma once

#include "recording/RecordingLog.h"

#include <QString>

#include <array>
#include <functional>

// A small ring of reusable encoder buffers. A slot is taken when it is free
// or does not match the wanted description (then it is reallocated; its old
// buffer lives on with whoever still holds it). When every matching slot is
// still held by the encoder, a temporary buffer outside the pool keeps the
// recording going, with a warning at most three times and then every 30th.
// `busy` tells whether anyone besides the pool holds a slot's buffer; the
// two log lines are the owner's, beginning with its class name.
template<typename Slot, typename Desc>
class EncoderSlotPool
{
public:
    static constexpr int Size = 8;
    static constexpr quint64 WarningRate = 30;

    using Allocate = std::function<Slot(const Desc &)>;
    using Busy = std::function<bool(const Slot &)>;

    struct LogTexts
    {
        QString allocated; // info, followed by the slot and the description
        QString busy; // warning, followed by the counts
    };

    EncoderSlotPool(LogTexts texts, Allocate allocate, Busy busy)
        : m_texts(std::move(texts))
        , m_allocate(std::move(allocate))
        , m_busy(std::move(busy))
    {
    }

    // Returns a buffer of the wanted description, or an empty Slot when the
    // allocation fails.
    Slot acquire(const Desc &wanted)
    {
        for (int i = 0; i < Size; ++i) {
            const int index = (m_next + i) % Size;
            Entry &entry = m_entries[index];
            const bool matches = bool(entry.slot) && entry.desc == wanted;
            if (matches && m_busy(entry.slot))
                continue;
            m_next = (index + 1) % Size;
            if (!matches) {
                entry.slot = m_allocate(wanted);
                if (!entry.slot) {
                    entry.desc = Desc();
                    return entry.slot;
                }
                entry.desc = wanted;
                ++m_poolAllocations;
                qCInfo(lcRecording).noquote() << m_texts.allocated << "slot" << index << wanted;
            }
            ++entry.uses;
            return entry.slot;
        }
        Slot temporary = m_allocate(wanted);
        ++m_temporaryAllocations;
        if (warnsAt(m_temporaryAllocations)) {
            qCWarning(lcRecording).noquote() << m_texts.busy << "temporaryAllocations"
                                             << m_temporaryAllocations << "poolSize" << Size;
        }
        return temporary;
    }

    void clear()
    {
        m_entries = {};
        m_next = 0;
        m_poolAllocations = 0;
        m_temporaryAllocations = 0;
    }

    static bool warnsAt(quint64 temporaryCount)
    {
        return temporaryCount <= 3 || temporaryCount % WarningRate == 0;
    }

    quint64 poolAllocations() const { return m_poolAllocations; }
    quint64 temporaryAllocations() const { return m_temporaryAllocations; }
    quint64 uses(int index) const { return m_entries[index].uses; }

private:
    struct Entry
    {
        Slot slot {};
        Desc desc {};
        quint64 uses = 0;
    };

    LogTexts m_texts;
    Allocate m_allocate;
    Busy m_busy;
    std::array<Entry, Size> m_entries {};
    int m_next = 0;
    quint64 m_poolAllocations = 0;
    quint64 m_temporaryAllocations = 0;
};
