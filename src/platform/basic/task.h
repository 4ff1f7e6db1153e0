#pragma once

#include <QMutex>
#include <QObject>
#include <QString>
#include <atomic>
#include <exception>
#include <functional>
#include <memory>
#include <optional>

class QThread;

// Long work on a thread of its own: import, export, the search of the drives, the copying of a picture, mail.
namespace vorel::basic {

struct TaskProgress {
    qint64 done = 0;
    qint64 total = 0;               // 0: not known
    QString text{};                 // what is being worked on
};

// The worker's side.
class TaskContext {
public:
    void progress(qint64 done, qint64 total, const QString &text = {});     // as often as the worker likes
    bool isCancelled() const { return m_cancelled; }

private:
    friend class Task;
    std::atomic<bool> m_cancelled = false, m_reported = false;
    mutable QMutex m_mutex;
    TaskProgress m_latest;
    std::function<void()> m_changed;
};

// The end of the work: a value, a cancellation, or the failure that ended the worker.
template <class T>
class TaskOutcome {
public:
    TaskOutcome(std::optional<T> value, std::exception_ptr failure) : m_value(std::move(value)), m_failure(std::move(failure)) {}
    bool isStopped() const { return !m_value && !m_failure; }
    const T &value() const          // throws what the worker threw; only where the work was not stopped
    {
        if (m_failure)
            std::rethrow_exception(m_failure);
        return *m_value;
    }

private:
    std::optional<T> m_value;
    std::exception_ptr m_failure;
};

// Starts the worker, reports its progress and delivers its outcome, both on the thread of the task. A task that is
// destroyed cancels its worker and waits for it, and reports nothing any more; so what the worker uses must be its own or
// live longer than the task. One worker at a time: a second start cancels and replaces the first, whose outcome is dropped.
class Task : public QObject {
    Q_OBJECT
public:
    explicit Task(QObject *parent = nullptr);
    ~Task() override;

    // work: std::optional<T>(TaskContext &). It returns nullopt when it stopped because isCancelled() said so, having
    // undone what was half done. A worker that is done before it notices the cancellation returns its value, and the work counts.
    // done: void(const TaskOutcome<T> &). Runs under Trap, so that value() may simply throw.
    template <class Work, class Done>
    void start(Work work, Done done)
    {
        using Result = typename std::invoke_result_t<Work, TaskContext &>::value_type;
        struct End {
            std::optional<Result> value;
            std::exception_ptr failure;
        };
        auto end = std::make_shared<End>();
        run([end, work = std::move(work)](TaskContext &context) mutable {
            try {
                end->value = work(context);
            } catch (...) {
                end->failure = std::current_exception();
            }
        }, [end, done = std::move(done)] { done(TaskOutcome<Result>(std::move(end->value), end->failure)); });
    }
    void cancel();                  // a request: the outcome follows
    bool isRunning() const { return m_thread != nullptr; }
    bool isCancelled() const;       // the request was made
    TaskProgress progress() const;

signals:
    void started();
    void progressed();
    void ended();                   // before the outcome is handed over

private:
    void run(std::function<void(TaskContext &)> work, std::function<void()> done);
    bool join();

    quint64 m_turn = 0;             // what an earlier worker still posts is not this one's
    std::shared_ptr<TaskContext> m_context;
    std::unique_ptr<QThread> m_thread;
};

}
