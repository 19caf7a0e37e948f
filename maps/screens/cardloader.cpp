#include "maps/screens/cardloader.h"

#include <QMetaObject>
#include <exception>
#include <string>
#include <utility>

namespace rd {

CardLoader::CardLoader(QObject* parent) : QObject(parent) {
    qRegisterMetaType<rd::CardResult>("rd::CardResult");
}

CardLoader::~CardLoader() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        waiting_.reset();
        if (runningCancel_)
            runningCancel_->store(true);
    }
    wake_.notify_all();
    // The reading running now stops at its next look at its flag; whatever it hands back is
    // dropped with the events of this object.
    if (thread_.joinable())
        thread_.join();
}

void CardLoader::request(Reading reading) {
    const std::uint64_t number = latest_.fetch_add(1) + 1;
    busy_ = true;
    {
        std::lock_guard lock(mutex_);
        waiting_ = std::move(reading);
        waitingNumber_ = number;
        if (runningCancel_)
            runningCancel_->store(true);
    }
    if (!thread_.joinable())
        thread_ = std::thread([this] { run(); });
    wake_.notify_one();
}

void CardLoader::cancel() {
    latest_.fetch_add(1);
    busy_ = false;
    std::lock_guard lock(mutex_);
    waiting_.reset();
    if (runningCancel_)
        runningCancel_->store(true);
}

void CardLoader::run() {
    for (;;) {
        Reading reading;
        std::uint64_t number = 0;
        auto cancelled = std::make_shared<std::atomic<bool>>(false);
        {
            std::unique_lock lock(mutex_);
            wake_.wait(lock, [this] { return stopping_ || waiting_.has_value(); });
            if (stopping_)
                return;
            reading = std::move(*waiting_);
            waiting_.reset();
            number = waitingNumber_;
            runningCancel_ = cancelled;
        }
        CardResult result;
        try {
            result = reading(*cancelled);
        } catch (const std::exception& error) {
            result = CardResult{};
            result.reason = std::string("its file cannot be read: ") + error.what();
        }
        {
            std::lock_guard lock(mutex_);
            runningCancel_.reset();
        }
        if (cancelled->load() || number != latest_.load())
            continue;
        QMetaObject::invokeMethod(
            this,
            [this, number, result = std::move(result)] {
                // Another row may have been selected while this card was on its way.
                if (number != latest_.load())
                    return;
                busy_ = false;
                emit cardRead(result);
            },
            Qt::QueuedConnection);
    }
}

} // namespace rd
