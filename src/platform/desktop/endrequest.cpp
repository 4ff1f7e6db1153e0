#include "platform/desktop/endrequest.h"

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vorel::desktop {

namespace {

constexpr std::array signalNumbers = {SIGTERM, SIGINT, SIGHUP};
std::array<struct sigaction, signalNumbers.size()> formerHandlers;
int ends[2] = {-1, -1};

// Little is allowed within a signal handler; a write is.
void passOn(int)
{
    const char mark = 1;
    const ssize_t written = ::write(ends[0], &mark, 1);
    static_cast<void>(written);
}

}

EndRequest::EndRequest()
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(ends[1], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { read(); });
    struct sigaction action = {};
    action.sa_handler = passOn;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < signalNumbers.size(); ++i)
        ::sigaction(signalNumbers[i], &action, &formerHandlers[i]);
}

EndRequest::~EndRequest()
{
    if (!m_notifier)
        return;
    for (std::size_t i = 0; i < signalNumbers.size(); ++i)
        ::sigaction(signalNumbers[i], &formerHandlers[i], nullptr);
    m_notifier.reset();
    for (int &end : ends)
        ::close(std::exchange(end, -1));
}

void EndRequest::read()
{
    char marks[16];
    if (::read(ends[1], marks, sizeof marks) > 0)
        emit Requested();
}

}
