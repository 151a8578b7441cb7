// The worker threads and the in-order delivery of their results.
#include "App_OrderedPool.h"

namespace App {

OrderedPool::OrderedPool(unsigned threads, std::size_t window)
    : m_threads(threads == 0 ? 1 : threads), m_window(window == 0 ? 128 * std::size_t{m_threads} : window)
{
    if (m_threads == 1)
        return;
    m_workers.reserve(m_threads);
    for (unsigned i = 0; i < m_threads; ++i)
        m_workers.emplace_back([this] { workerLoop(); });
}

OrderedPool::~OrderedPool()
{
    {
        std::lock_guard lock(m_mutex);
        m_stopping = true;
        m_queue.clear();
    }
    m_workAvailable.notify_all();
    for (std::thread& worker : m_workers)
        worker.join();
}

void OrderedPool::workerLoop()
{
    for (;;) {
        std::shared_ptr<Item> item;
        {
            std::unique_lock lock(m_mutex);
            m_workAvailable.wait(lock, [this] { return m_stopping || !m_queue.empty(); });
            if (m_stopping)
                return;
            item = std::move(m_queue.front());
            m_queue.pop_front();
        }
        item->task();
        {
            std::lock_guard lock(m_mutex);
            item->done = true;
        }
        m_itemDone.notify_all();
    }
}

void OrderedPool::submit(Task task, Delivery delivery)
{
    auto item = std::make_shared<Item>();
    item->delivery = std::move(delivery);
    if (!task || m_workers.empty()) {
        if (task)
            task();
        item->done = true;
    } else {
        item->task = std::move(task);
    }
    {
        std::lock_guard lock(m_mutex);
        m_pending.push_back(item);
        if (!item->done)
            m_queue.push_back(item);
    }
    if (!item->done)
        m_workAvailable.notify_one();
    // Keep the window: wait for the oldest items while it is full.
    for (;;) {
        std::size_t pending = 0;
        {
            std::lock_guard lock(m_mutex);
            pending = m_pending.size();
        }
        if (pending <= m_window)
            break;
        deliver(true, true);
    }
    deliverReady();
}

void OrderedPool::deliverReady()
{
    deliver(false, false);
}

void OrderedPool::finish()
{
    deliver(true, false);
}

void OrderedPool::deliver(bool wait, bool one)
{
    for (;;) {
        std::shared_ptr<Item> first;
        {
            std::unique_lock lock(m_mutex);
            if (m_pending.empty())
                return;
            if (wait)
                m_itemDone.wait(lock, [this] { return m_pending.front()->done; });
            else if (!m_pending.front()->done)
                return;
            first = std::move(m_pending.front());
            m_pending.pop_front();
        }
        // Outside the lock: a delivery may take its time (output) without
        // holding up the workers.
        if (first->delivery)
            first->delivery();
        if (one)
            return;
    }
}

} // namespace App
