#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

namespace vorel::test {

// Stands for the desktop's programs: keeps the addresses that they were to open.
class Opened : public QObject {
    Q_OBJECT
public:
    explicit Opened(const QStringList &schemes) : m_schemes(schemes)
    {
        for (const QString &scheme : m_schemes)
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~Opened() override
    {
        for (const QString &scheme : m_schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }
    QList<QUrl> urls;

public slots:
    void open(const QUrl &url) { urls.append(url); }

private:
    QStringList m_schemes;
};

}
