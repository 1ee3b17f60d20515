// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/http_fetch.h"

#include "base/failure.h"
#include "desktop/qt_text.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

namespace kelmar::desktop {

namespace {

bool isWeb(const QUrl& url) {
  return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

QString seconds(int milliseconds) {
  return milliseconds % 1000 ? QString::number(milliseconds / 1000.0)
                             : QString::number(milliseconds / 1000);
}

QNetworkRequest requestFor(const QUrl& url) {
  QNetworkRequest request(url);
  request.setRawHeader("Accept-Encoding", "identity"); // lengths are compared below
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  return request;
}

/// One answer on its way.
class Transfer {
 public:
  Transfer(QNetworkReply& reply, const HttpFetch::Limits& limits) : reply_(reply), limits_(limits) {
    QObject::connect(&reply, &QNetworkReply::requestSent, &connect_, &QTimer::stop);
    QObject::connect(&reply, &QNetworkReply::metaDataChanged, &connect_, &QTimer::stop);
    QObject::connect(&reply, &QNetworkReply::metaDataChanged, &loop_, [this] { judgeHead(); });
    QObject::connect(&reply, &QNetworkReply::readyRead, &loop_, [this] { take(); });
    QObject::connect(&reply, &QNetworkReply::finished, &loop_, &QEventLoop::quit);
    connect_.setSingleShot(true);
    QObject::connect(&connect_, &QTimer::timeout, &loop_, [this] {
      stop(QStringLiteral("no connection to the server within %1 seconds")
               .arg(seconds(limits_.connectMs)));
    });
    total_.setSingleShot(true);
    QObject::connect(&total_, &QTimer::timeout, &loop_, [this] {
      stop(QStringLiteral("not received within %1 seconds").arg(seconds(limits_.totalMs)));
    });
  }

  /// What went wrong; empty when the body is whole.
  QString run() {
    connect_.start(limits_.connectMs);
    total_.start(limits_.totalMs);
    if (!reply_.isFinished()) loop_.exec(QEventLoop::ExcludeUserInputEvents);
    take();
    return failure();
  }

  std::string body() { return std::move(body_); }

 private:
  qint64 announced() const {
    const QVariant length = reply_.header(QNetworkRequest::ContentLengthHeader);
    return length.isValid() ? length.toLongLong() : -1;
  }

  void stop(const QString& why) {
    if (!stopped_.isEmpty()) return;
    stopped_ = why;
    reply_.abort();
  }

  void stopForSize() {
    stop(QStringLiteral("larger than the limit of %1 bytes").arg(limits_.bytes));
  }

  void judgeHead() {
    if (announced() > limits_.bytes) stopForSize();
  }

  void take() {
    if (!stopped_.isEmpty()) return;
    const QByteArray part = reply_.readAll();
    if (static_cast<qint64>(body_.size()) + part.size() > limits_.bytes)
      stopForSize();
    else
      body_.append(part.constData(), static_cast<std::size_t>(part.size()));
  }

  QString failure() const {
    if (!stopped_.isEmpty()) return stopped_;
    const int status = reply_.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status != 0 && (status < 300 || status >= 400) && status != 200)
      return QStringLiteral("the server answered %1 %2")
          .arg(status)
          .arg(reply_.attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString());
    const qint64 whole = announced();
    if (status == 200 && whole >= 0 && static_cast<qint64>(body_.size()) < whole)
      return QStringLiteral("cut off after %1 of %2 bytes").arg(body_.size()).arg(whole);
    switch (reply_.error()) {
    case QNetworkReply::NoError:
      return status == 200 ? QString() : QStringLiteral("the server gave no document");
    case QNetworkReply::ConnectionRefusedError:
      return QStringLiteral("no server answers at %1").arg(reply_.url().authority());
    case QNetworkReply::HostNotFoundError:
      return QStringLiteral("there is no host %1").arg(reply_.url().host());
    case QNetworkReply::RemoteHostClosedError:
      return QStringLiteral("cut off by the server after %1 bytes").arg(body_.size());
    default:
      return reply_.errorString();
    }
  }

  QNetworkReply& reply_;
  const HttpFetch::Limits limits_;
  QEventLoop loop_;
  QTimer connect_, total_;
  QString stopped_;
  std::string body_;
};

} // namespace

HttpFetch::HttpFetch() : HttpFetch(Limits{}) {}
HttpFetch::HttpFetch(Limits limits) : limits_(limits) {}
HttpFetch::~HttpFetch() = default;

std::string HttpFetch::get(const std::string& url) {
  const auto fail = [&url](const QString& why) {
    throw Failure(FileAccessFailed, "HttpFetch", "Cannot read " + url + ": " + u8(why));
  };
  const QUrl address(qs(url), QUrl::TolerantMode);
  if (!address.isValid() || !isWeb(address) || address.host().isEmpty())
    fail(QStringLiteral("not an address of a web server"));
  if (!manager_) manager_ = std::make_unique<QNetworkAccessManager>();
  const std::unique_ptr<QNetworkReply> reply(manager_->get(requestFor(address)));
  Transfer transfer(*reply, limits_);
  if (const QString why = transfer.run(); !why.isEmpty()) fail(why);
  return transfer.body();
}

} // namespace kelmar::desktop
