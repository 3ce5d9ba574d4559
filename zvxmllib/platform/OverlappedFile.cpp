// A file whose transfers run beside the caller, on one thread for each open file.
#include "zvxmllib/platform/OverlappedFile.h"

#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include <csignal>

namespace ZvXmlLib16::platform {

namespace {

// Blocks all signals during its lifetime. A thread started meanwhile inherits that, so the application's
// handlers never run on it.
class BlockedSignals {
public:
    BlockedSignals() noexcept {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    BlockedSignals(BlockedSignals const&) = delete;
    BlockedSignals& operator=(BlockedSignals const&) = delete;
    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before;
};

} // namespace

// The open file, its thread and the one job between them.
class OverlappedFile::Worker {
public:
    struct Transfer {
        enum Kind { kNone, kRead, kWrite };

        Kind kind = kNone;
        void* data = nullptr; // not written to by a write
        std::size_t length = 0;
        std::uint64_t offset = 0;
    };

    struct Outcome {
        std::size_t count = 0;
        int error = 0; // 0 for success
    };

    Worker() = default;
    Worker(Worker const&) = delete;
    Worker& operator=(Worker const&) = delete;
    ~Worker() { Stop(); }

    File& GetFile() noexcept { return m_file; }

    void StartThread() {
        BlockedSignals const blocked;
        try {
            m_thread = std::thread([this] { Serve(); });
        } catch (std::system_error const&) {
            // Without a thread the transfers run on the spot.
        }
    }

    void Start(Transfer const& job) {
        if (!m_thread.joinable()) {
            m_outcome = Run(job);
            m_isPosted = true;
            m_isDone = true;
            return;
        }
        std::lock_guard<std::mutex> const lock(m_mutex);
        m_job = job;
        m_isPosted = true;
        m_isDone = false;
        m_changed.notify_all();
    }

    Outcome Wait() {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (!m_isPosted)
            return Outcome();
        m_changed.wait(lock, [this] { return m_isDone; });
        m_isPosted = false;
        return m_outcome;
    }

    // The thread finishes the transfer in flight first.
    void Stop() noexcept {
        if (!m_thread.joinable())
            return;
        {
            std::lock_guard<std::mutex> const lock(m_mutex);
            m_isStopping = true;
            m_changed.notify_all();
        }
        m_thread.join();
    }

private:
    void Serve() {
        std::unique_lock<std::mutex> lock(m_mutex);
        for (;;) {
            m_changed.wait(lock, [this] { return m_isStopping || m_job.kind != Transfer::kNone; });
            if (m_job.kind == Transfer::kNone)
                return;
            Transfer const job = std::exchange(m_job, Transfer());
            lock.unlock();
            Outcome const outcome = Run(job);
            lock.lock();
            m_outcome = outcome;
            m_isDone = true;
            m_changed.notify_all();
        }
    }

    Outcome Run(Transfer const& job) noexcept {
        Outcome outcome;
        bool const isDone = job.kind == Transfer::kRead
                                ? m_file.ReadAt(job.offset, job.data, job.length, outcome.count)
                                : m_file.WriteAt(job.offset, job.data, job.length, outcome.count);
        if (!isDone)
            outcome.error = m_file.Error();
        return outcome;
    }

    File m_file;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    Transfer m_job; // posted and not yet taken
    Outcome m_outcome;
    bool m_isPosted = false; // started and not yet waited for
    bool m_isDone = false;
    bool m_isStopping = false;
    std::thread m_thread;
};

OverlappedFile::OverlappedFile() = default;

OverlappedFile::~OverlappedFile() {
    Close();
}

template <class Opening>
bool OverlappedFile::Open(Opening const& opening) {
    Close();
    auto worker = std::make_unique<Worker>();
    File& file = worker->GetFile();
    if (!opening(file)) {
        m_error = file.Error();
        return false;
    }
    worker->StartThread();
    m_worker = std::move(worker);
    return true;
}

bool OverlappedFile::OpenForReading(char const* name) {
    return Open([name](File& file) { return file.OpenForReading(name); });
}

bool OverlappedFile::Create(char const* name, FileMode mode) {
    return Open([name, mode](File& file) { return file.Create(name, mode); });
}

void OverlappedFile::StartRead(void* data, std::size_t length, std::uint64_t offset) {
    m_worker->Start(Worker::Transfer{Worker::Transfer::kRead, data, length, offset});
}

void OverlappedFile::StartWrite(void const* data, std::size_t length, std::uint64_t offset) {
    m_worker->Start(Worker::Transfer{Worker::Transfer::kWrite, const_cast<void*>(data), length, offset});
}

bool OverlappedFile::Wait(std::size_t& count) {
    count = 0;
    if (m_worker == nullptr)
        return true;
    Worker::Outcome const outcome = m_worker->Wait();
    count = outcome.count;
    if (outcome.error == 0)
        return true;
    m_error = outcome.error;
    return false;
}

bool OverlappedFile::End(bool (File::*ending)() noexcept) noexcept {
    if (m_worker == nullptr)
        return true;
    m_worker->Stop();
    File& file = m_worker->GetFile();
    bool const isEnded = (file.*ending)();
    if (!isEnded)
        m_error = file.Error();
    m_worker.reset();
    return isEnded;
}

} // namespace ZvXmlLib16::platform
