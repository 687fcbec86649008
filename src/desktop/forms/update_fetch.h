#pragma once

#include "core/message.h"

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>

class QNetworkReply;

namespace orvel {

// Fetches the page that lists the current package: one asynchronous GET with a time limit. Reading stops at the first
// package or after a megabyte.
class Update_Fetch : public QObject {
    Q_OBJECT

public:
    explicit Update_Fetch(QObject* parent = nullptr);

    // Ends with Finished, also for a server that does not answer. Does nothing while a fetch is under way.
    void Start(const QUrl& address);

signals:
    void Finished(const Message& message);

private:
    void Take();
    void Finish();

    QNetworkAccessManager Network;
    QPointer<QNetworkReply> Reply;
    QByteArray Page;
    QTimer Limit;
};

} // namespace orvel
