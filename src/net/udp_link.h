#pragma once

#include <QHostAddress>
#include <QList>
#include <QObject>
#include <memory>

#include "net/link.h"

class QUdpSocket;

namespace bq::net {

// The link over UDP: a socket bound to the local port, sending to the opponent given as IPv4,
// IPv6 or a host name. Datagrams arrive through the Qt event loop.
class UdpLink : public QObject, public Link {
  Q_OBJECT
 public:
  UdpLink();
  ~UdpLink() override;

  std::string Configure(const std::string& remote_host, long remote_port, long local_port) override;
  void Send(std::string_view message) override;
  std::string LocalIP() const override;
  int LocalPort() const override;

 private:
  void ReadAll();

  std::unique_ptr<QUdpSocket> socket_;
  QList<QHostAddress> remote_;  // every address the opponent's name stands for; sent to the first
  quint16 remote_port_ = 0;
};

}  // namespace bq::net
