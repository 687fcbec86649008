#include "desktop/forms/update_fetch.h"

#include "desktop/update_check.h"

#include <QNetworkReply>

namespace orvel {

namespace {

constexpr int Time_Limit = 5000; // ms
constexpr qsizetype Largest_Page = qsizetype(1) << 20;

} // namespace

Update_Fetch::Update_Fetch(QObject* parent) : QObject(parent)
{
    Limit.setSingleShot(true);
    connect(&Limit, &QTimer::timeout, this, [this] {
        if (Reply)
            Reply->abort(); // ends in Finish
    });
}

void Update_Fetch::Start(const QUrl& address)
{
    if (Reply)
        return;
    Page.clear();
    Reply = Network.get(QNetworkRequest(address));
    Limit.start(Time_Limit); // for the whole fetch, however slowly the server sends
    connect(Reply, &QNetworkReply::readyRead, this, &Update_Fetch::Take);
    connect(Reply, &QNetworkReply::finished, this, &Update_Fetch::Finish);
}

void Update_Fetch::Take()
{
    Page += Reply->readAll();
    if (Page.size() > Largest_Page || Page.contains(".zip"))
        Reply->abort(); // ends in Finish
}

void Update_Fetch::Finish()
{
    Limit.stop();
    const auto error = Reply->error();
    Page += Reply->isOpen() ? Reply->readAll() : QByteArray();
    Reply->deleteLater();
    Reply = nullptr;
    const bool read = error == QNetworkReply::NoError || Page.contains(".zip");
    emit Finished(read ? Evaluate_Update_Page({Page.constData(), static_cast<std::size_t>(Page.size())})
                       : Connection_Problem());
}

} // namespace orvel
