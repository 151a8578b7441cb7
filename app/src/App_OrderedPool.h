// Work on several threads whose results are handed back in the order the
// work was given: the basis of a parallel batch whose output is the same,
// byte for byte, as that of a run on one thread.
//
// Each submitted item has a task, run on a worker thread, and a delivery,
// run afterwards on the submitting thread, in submission order. An item
// without a task is delivered in its turn. Deliveries happen inside submit()
// (when the window of undelivered items is full, or as results are ready)
// and inside finish(). With one thread no worker is started: each task runs
// inside submit().
//
// Invariants:
//   1. Deliveries run on the submitting thread only, one at a time, item
//      0, 1, 2 ... in order; item k is delivered after its task ended.
//   2. At most `window` items are submitted and not yet delivered.
//   3. A task and its delivery share what they capture; the pool keeps both
//      alive until the delivery ran.
//
// Protocol of use:
//   App::OrderedPool pool(threads);
//   for (...) pool.submit([=] { work(); }, [=] { show(); });
//   pool.submit({}, [] { say("done"); });
//   pool.finish();                      // every delivery has run
#ifndef APP_ORDEREDPOOL_H
#define APP_ORDEREDPOOL_H

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace App {

class OrderedPool {
public:
    using Task = std::function<void()>;
    using Delivery = std::function<void()>;

    // `threads` 0 counts as 1; `window` 0 means 128 items per thread: enough
    // for the other threads to go on with small files while one formats a
    // file a few hundred times larger, instead of waiting for its delivery.
    explicit OrderedPool(unsigned threads, std::size_t window = 0);
    ~OrderedPool();
    OrderedPool(const OrderedPool&) = delete;
    OrderedPool& operator=(const OrderedPool&) = delete;

    void submit(Task task, Delivery delivery);
    // Delivers every item whose turn has come and whose task has ended,
    // without waiting.
    void deliverReady();
    // Waits for every task and delivers every item.
    void finish();

    unsigned threads() const { return m_threads; }

private:
    struct Item {
        Task task;
        Delivery delivery;
        bool done = false;
    };

    void workerLoop();
    // Delivers items in order while the first is done; with `wait`, waits
    // for it first. Returns after one delivery at most when `one` is set.
    void deliver(bool wait, bool one);

    unsigned m_threads;
    std::size_t m_window;
    std::mutex m_mutex;
    std::condition_variable m_workAvailable;
    std::condition_variable m_itemDone;
    std::deque<std::shared_ptr<Item>> m_pending;  // submitted, not yet delivered, in order
    std::deque<std::shared_ptr<Item>> m_queue;    // tasks not yet started
    bool m_stopping = false;
    std::vector<std::thread> m_workers;
};

} // namespace App

#endif
