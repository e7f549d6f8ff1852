#include "net/udp_link.h"

#include <QAbstractSocket>
#include <QDeadlineTimer>
#include <QHostInfo>
#include <QNetworkInterface>
#include <QUdpSocket>
#include <algorithm>

#include "net/message.h"

namespace bq::net {
namespace {

std::string BindFailure(const QUdpSocket& socket, long port) {
  const std::string p = std::to_string(port);
  switch (socket.error()) {
    case QAbstractSocket::AddressInUseError:
      return "Port " + p + " is already in use on this computer; choose another port.";
    case QAbstractSocket::SocketAccessError:
      return "Port " + p + " needs administrator privileges; choose a port from 1024 up.";
    default:
      return "Port " + p + " cannot be used: " + socket.errorString().toStdString();
  }
}

// The sender as a player would write it: IPv4 as such (also when it came mapped into IPv6), IPv6
// in brackets so that the port after it reads clearly.
std::string SenderText(const QHostAddress& sender) {
  bool v4 = false;
  const quint32 ip4 = sender.toIPv4Address(&v4);
  if (v4) return QHostAddress(ip4).toString().toStdString();
  return "[" + sender.toString().toStdString() + "]";
}

}  // namespace

UdpLink::UdpLink() = default;
UdpLink::~UdpLink() = default;

std::string UdpLink::Configure(const std::string& remote_host, long remote_port, long local_port) {
  if (remote_port < 1 || remote_port > 65535)
    return "The opponent's port must be a number from 1 to 65535.";
  QList<QHostAddress> addresses;
  QHostAddress literal;
  QString host = QString::fromStdString(remote_host);
  if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
    host = host.mid(1, host.size() - 2);  // an IPv6 address as a web address writes it
  if (literal.setAddress(host)) {
    addresses.append(literal);
  } else {
    const QHostInfo info = QHostInfo::fromName(host);
    addresses = info.addresses();
    if (info.error() != QHostInfo::NoError || addresses.isEmpty())
      return "The opponent's address \"" + remote_host + "\" was not found.";
    // IPv4 first: that is the address each player reads out to the other, so a name that
    // stands for both reaches the opponent from the address the opponent expects.
    std::stable_partition(addresses.begin(), addresses.end(), [](const QHostAddress& a) {
      return a.protocol() == QAbstractSocket::IPv4Protocol;
    });
  }
  if (!socket_) {
    if (local_port < 1 || local_port > 65535) return "Your port must be a number from 1 to 65535.";
    auto socket = std::make_unique<QUdpSocket>();
    if (!socket->bind(QHostAddress::Any, static_cast<quint16>(local_port)))
      return BindFailure(*socket, local_port);
    connect(socket.get(), &QUdpSocket::readyRead, this, &UdpLink::ReadAll);
    socket_ = std::move(socket);
  }
  remote_ = addresses;
  remote_port_ = static_cast<quint16>(remote_port);
  return "";
}

void UdpLink::Send(std::string_view message) {
  if (!socket_ || remote_.isEmpty()) return;
  socket_->writeDatagram(message.data(), static_cast<qint64>(message.size()), remote_.front(),
                         remote_port_);
}

void UdpLink::ReadAll() {
  char buffer[kMaxMessageLength + 1];
  while (socket_ && socket_->hasPendingDatagrams()) {
    const qint64 size = socket_->pendingDatagramSize();
    const bool too_long = size < 0 || size > static_cast<qint64>(kMaxMessageLength);
    QHostAddress sender;
    quint16 port = 0;
    // A datagram too long for any message is read without its bytes, for its sender only.
    const qint64 got = socket_->readDatagram(buffer, too_long ? 0 : sizeof buffer, &sender, &port);
    bool from_opponent = port == remote_port_;
    if (from_opponent) {
      from_opponent = false;
      for (const QHostAddress& a : remote_)
        from_opponent = from_opponent || a.isEqual(sender, QHostAddress::TolerantConversion);
    }
    if (!from_opponent && !sender.isNull()) {
      Stranger(SenderText(sender), port);
      continue;
    }
    if (got < 0 || too_long || !from_opponent) {
      Drop();
      continue;
    }
    Deliver(std::string(buffer, static_cast<size_t>(got)));
  }
}

std::string UdpLink::LocalIP() const {
  for (const QNetworkInterface& i : QNetworkInterface::allInterfaces()) {
    if (!i.flags().testFlag(QNetworkInterface::IsUp) ||
        i.flags().testFlag(QNetworkInterface::IsLoopBack))
      continue;
    for (const QNetworkAddressEntry& e : i.addressEntries())
      if (e.ip().protocol() == QAbstractSocket::IPv4Protocol && !e.ip().isLoopback())
        return e.ip().toString().toStdString();
  }
  return "127.0.0.1";
}

int UdpLink::LocalPort() const {
  return socket_ ? socket_->localPort() : 0;
}

}  // namespace bq::net
