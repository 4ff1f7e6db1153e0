#include "platform/basic/task.h"

#include "platform/basic/error.h"

#include <QThread>

namespace vorel::basic {

void TaskContext::progress(qint64 done, qint64 total, const QString &text)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_latest = {done, total, text};
    }
    // One report is under way at most, however often a quick worker calls. Work that is called directly, without a task,
    // has nobody to report to.
    if (m_changed && !m_reported.exchange(true))
        m_changed();
}

Task::Task(QObject *parent) : QObject(parent) {}

Task::~Task()
{
    join();
}

void Task::cancel()
{
    if (m_context)
        m_context->m_cancelled = true;
}

bool Task::isCancelled() const
{
    return m_thread && m_context->m_cancelled;
}

TaskProgress Task::progress() const
{
    if (!m_context)
        return {};
    const QMutexLocker lock(&m_context->m_mutex);
    return m_context->m_latest;
}

void Task::run(std::function<void(TaskContext &)> work, std::function<void()> done)
{
    if (join())
        emit ended();
    m_context = std::make_shared<TaskContext>();
    const quint64 turn = ++m_turn;
    // The task joins the worker before it is destroyed, so the worker may post to it; pending posts are dropped with it.
    m_context->m_changed = [this, turn] {
        QMetaObject::invokeMethod(this, [this, turn] {
            if (turn != m_turn || !m_thread)
                return;
            m_context->m_reported = false;
            emit progressed();
        }, Qt::QueuedConnection);
    };
    m_thread.reset(QThread::create([this, turn, context = m_context, work = std::move(work), done = std::move(done)]() mutable {
        work(*context);
        QMetaObject::invokeMethod(this, [this, turn, done = std::move(done)] {
            if (turn != m_turn || !join())
                return;
            emit ended();
            Trap(done);
        }, Qt::QueuedConnection);
    }));
    m_thread->start(QThread::LowPriority);
    emit started();
}

// False if there is nothing to wait for.
bool Task::join()
{
    if (!m_thread)
        return false;
    cancel();
    m_thread->wait();
    m_thread.reset();
    return true;
}

}
