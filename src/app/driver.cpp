#include "app/driver.h"

#include <chrono>
#include <iostream>
#include <memory>
#include <random>
#include <string_view>

#include "net/link.h"
#include "ui/model/app_model.h"
#include "ui/model/communicate_model.h"

namespace bq {
namespace {

class DriverPlatform : public Platform {
 public:
  DriverPlatform(std::ostream& out, std::optional<unsigned> seed, int screen_width)
      : out_(out),
        gen_(seed ? *seed
                  : static_cast<unsigned>(
                        std::chrono::steady_clock::now().time_since_epoch().count())),
        screen_width_(screen_width) {}

  float Uniform() override { return static_cast<float>(gen_() >> 8) * 0x1p-24f; }
  void PlayClick() override { ++sounds_; }
  void Open(const std::string& target) override { out_ << "opened: " << target << '\n'; }
  void MessageBox(const std::string& text) override { out_ << "msgbox: " << text << '\n'; }
  void CriticalBox(const std::string& text, const std::string& detail) override {
    MessageBox(text);
    std::cerr << "bramblequay: " << detail << '\n';
  }
  int ScreenWidthPixels() override { return screen_width_; }
  void WindowOpened(const std::string& window) override { out_ << "open: " << window << '\n'; }
  void WindowClosed(const std::string& window) override { out_ << "closed: " << window << '\n'; }
  void Warn(const std::string& text) override { std::cerr << "bramblequay: " << text << '\n'; }
  void Notice(const std::string& text) override {
    out_ << "notice: " << text << '\n';
    Warn(text);
  }
  int sounds() const { return sounds_; }

 private:
  std::ostream& out_;
  std::mt19937 gen_;
  int screen_width_;
  int sounds_ = 0;
};

// A datagram as it travels; only bytes that would break the line are written \xNN.
std::string Raw(const std::string& text) {
  std::string out;
  for (char c : text) {
    const auto u = static_cast<unsigned char>(c);
    if (u >= 0x20 && u < 0x7f && c != '\\') {
      out += c;
    } else {
      static const char kHex[] = "0123456789abcdef";
      out += "\\x";
      out += kHex[u >> 4];
      out += kHex[u & 15];
    }
  }
  return out;
}

// The program's link with a line for every message that leaves.
class PrintingLink : public net::Link {
 public:
  PrintingLink(std::ostream& out, net::Link& inner) : out_(out), inner_(inner) {
    inner_.SetReceiver([this](const std::string& m) { Deliver(m); });
    inner_.SetStrangerReporter([this](const std::string& host, int port) { Stranger(host, port); });
  }
  std::string Configure(const std::string& host, long remote_port, long local_port) override {
    return inner_.Configure(host, remote_port, local_port);
  }
  void Send(std::string_view message) override {
    out_ << "sent: " << Raw(std::string(message)) << '\n';
    inner_.Send(message);
  }
  std::string LocalIP() const override { return inner_.LocalIP(); }
  int LocalPort() const override { return inner_.LocalPort(); }

 private:
  std::ostream& out_;
  net::Link& inner_;
};

std::string Quote(const std::string& text) {
  std::string out = "\"";
  for (char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + '"';
}

void PrintControl(std::ostream& out, const std::string& name, const Control& c, bool focus) {
  out << name << " caption=" << Quote(c.caption) << " visible=" << c.visible
      << " enabled=" << c.enabled << " marked=" << c.marked << " value=" << c.value
      << " focus=" << focus << '\n';
}

// Splits off the first word; `rest` keeps everything after the single blank that ends it.
std::string_view FirstWord(std::string_view line, std::string_view& rest) {
  const auto blank = line.find(' ');
  if (blank == std::string_view::npos) {
    rest = {};
    return line;
  }
  rest = line.substr(blank + 1);
  return line.substr(0, blank);
}

class Driver {
 public:
  Driver(std::ostream& out, const DriverOptions& options)
      : out_(out),
        platform_(out, options.seed, options.screen_width),
        app_(platform_, options.settings_path),
        wait_(options.wait) {
    if (options.link != nullptr) {
      link_ = std::make_unique<PrintingLink>(out, *options.link);
      link_->SetReceiver([this](const std::string& m) {
        out_ << "received: " << Raw(m) << '\n';
        app_.Receive(m);
      });
      link_->SetStrangerReporter(
          [this](const std::string& host, int port) { app_.Stranger(host, port); });
      app_.SetLink(link_.get());
    }
  }

  int Run(std::istream& in) {
    app_.Load();
    std::string line;
    while (!app_.exited() && std::getline(in, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line.find_first_not_of(" \t") == std::string::npos || line[0] == '#') continue;
      if (!Execute(line)) break;
      out_.flush();
    }
    return 0;
  }

 private:
  void Answer(AppModel::Result r, std::string_view name) {
    if (r == AppModel::Result::kIgnored) out_ << "ignored: " << name << '\n';
    if (r == AppModel::Result::kUnknown) out_ << "error: unknown control " << name << '\n';
  }

  void Show(std::string_view name) {
    if (WindowModel* w = app_.Window(name)) {
      const std::string prefix = name == "frmGame" ? "" : std::string(name) + ".";
      for (const auto& nc : w->Controls())
        PrintControl(out_, prefix + nc.name, *nc.control, w->Focus() == nc.name);
      return;
    }
    const auto [window, control] = AppModel::Split(name);
    WindowModel* w = app_.Window(window);
    const Control* c = w ? w->Find(control) : nullptr;
    if (c == nullptr) {
      out_ << "error: unknown control " << name << '\n';
      return;
    }
    PrintControl(out_, std::string(name), *c, w->Focus() == control);
  }

  // False ends the run.
  bool Execute(std::string_view line) {
    std::string_view rest;
    const std::string_view command = FirstWord(line, rest);
    if (command == "quit") return false;
    if (command == "click") {
      std::string_view keys;
      const std::string_view name = FirstWord(rest, keys);
      if (name == "background") {
        if (!keys.empty() && keys != "ctrl+alt") {
          out_ << "error: unknown keys " << keys << '\n';
          return true;
        }
        Answer(app_.ClickBackground(keys == "ctrl+alt"), name);
      } else if (name.empty() || !keys.empty()) {
        out_ << "error: click takes one control name\n";
      } else {
        Answer(app_.Click(name), name);
      }
    } else if (command == "rightclick") {
      Answer(app_.RightClick(rest), rest);
    } else if (command == "type") {
      std::string_view text;
      const std::string_view name = FirstWord(rest, text);
      const auto r = app_.Type(name, text);
      if (r == AppModel::Result::kUnknown) out_ << "error: no text box " << name << '\n';
      if (r == AppModel::Result::kIgnored) out_ << "ignored: " << name << '\n';
    } else if (command == "close") {
      const auto r = app_.Close(rest);
      if (r == AppModel::Result::kUnknown) out_ << "error: unknown window " << rest << '\n';
      if (r == AppModel::Result::kIgnored) out_ << "ignored: " << rest << '\n';
    } else if (command == "wait") {
      int ms = 0;
      try {
        ms = std::stoi(std::string(rest));
      } catch (...) {
        ms = -1;
      }
      if (ms < 0)
        out_ << "error: wait takes milliseconds\n";
      else if (wait_)
        wait_(ms);
      app_.Tick();
    } else if (command == "show") {
      Show(rest);
    } else if (command == "get") {
      const auto value = app_.game().GetField(rest);
      if (value)
        out_ << rest << '=' << *value << '\n';
      else
        out_ << "error: unknown field " << rest << '\n';
    } else if (command == "set") {
      std::string_view values;
      const std::string_view field = FirstWord(rest, values);
      const std::string why = app_.game().SetField(field, values);
      if (!why.empty()) out_ << "error: " << field << ": " << why << '\n';
    } else if (command == "sounds") {
      out_ << "sounds " << platform_.sounds() << '\n';
    } else {
      out_ << "error: unknown command " << command << '\n';
    }
    return true;
  }

  std::ostream& out_;
  DriverPlatform platform_;
  AppModel app_;
  std::function<void(int)> wait_;
  std::unique_ptr<PrintingLink> link_;
};

}  // namespace

int RunHeadless(std::istream& in, std::ostream& out, const DriverOptions& options) {
  Driver driver(out, options);
  return driver.Run(in);
}

}  // namespace bq
