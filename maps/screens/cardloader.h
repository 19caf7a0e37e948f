#pragma once
// Reads map cards away from the screen: one reading at a time on a thread of its own, and only the
// card of the row selected last is handed back. A reading still running when another is asked for
// is told to stop, and one still waiting is dropped, so moving through a list never waits for a
// map.

#include "maps/bsp.h"

#include <QObject>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace rd {

class CardLoader : public QObject {
    Q_OBJECT
public:
    // The reading: it is handed a flag that turns true when its card is no longer wanted.
    using Reading = std::function<CardResult(const std::atomic<bool>& cancel)>;

    explicit CardLoader(QObject* parent = nullptr);
    ~CardLoader() override;

    // Starts `reading` (after the one running, which is told to stop) and forgets any other.
    void request(Reading reading);
    // Forgets every reading asked for: no card arrives until the next request.
    void cancel();
    // True while a reading asked for has not yet handed back its card.
    bool busy() const { return busy_; }

signals:
    // The card (or why there is none) of the reading asked for last.
    void cardRead(const rd::CardResult& result);

private:
    void run();

    std::mutex mutex_;
    std::condition_variable wake_;
    std::optional<Reading> waiting_;
    std::uint64_t waitingNumber_ = 0;
    std::shared_ptr<std::atomic<bool>> runningCancel_;
    bool stopping_ = false;
    std::atomic<std::uint64_t> latest_{0}; // the number of the reading asked for last
    bool busy_ = false;
    std::thread thread_;
};

} // namespace rd
