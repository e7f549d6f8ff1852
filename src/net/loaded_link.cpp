#include "net/loaded_link.h"

#include <QEventLoop>
#include <QLibrary>
#include <QString>
#include <QTimer>
#include <utility>

namespace bq::net {

LoadedLink::LoadedLink(std::string module_path) : module_path_(std::move(module_path)) {}

LoadedLink::~LoadedLink() = default;

Link* LoadedLink::Loaded() const {
  if (tried_) return link_.get();
  tried_ = true;
  // Never unloaded: the link's code must outlive the link.
  QLibrary module(QString::fromStdString(module_path_));
  const auto make = reinterpret_cast<MakeLinkFunction>(module.resolve(kMakeLinkSymbol));
  if (make == nullptr) {
    failure_ =
        "The program's network module cannot be loaded: " + module.errorString().toStdString();
    return nullptr;
  }
  link_.reset(make());
  auto* self = const_cast<LoadedLink*>(this);
  link_->SetReceiver([self](const std::string& message) { self->Deliver(message); });
  return link_.get();
}

std::string LoadedLink::Configure(const std::string& remote_host, long remote_port,
                                  long local_port) {
  Link* link = Loaded();
  return link ? link->Configure(remote_host, remote_port, local_port) : failure_;
}

void LoadedLink::Send(std::string_view message) {
  if (link_) link_->Send(message);
}

std::string LoadedLink::LocalIP() const {
  const Link* link = Loaded();
  return link ? link->LocalIP() : "127.0.0.1";
}

int LoadedLink::LocalPort() const {
  return link_ ? link_->LocalPort() : 0;
}

void RunEventsFor(int ms) {
  QEventLoop loop;
  QTimer::singleShot(ms, &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace bq::net
