#pragma once

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace bq::test {

struct ChildResult {
  int status = -1;  // as waitpid gives it
  std::string out, err;
  bool timed_out = false;
};

struct ChildOptions {
  std::string input;                   // standard input, then end of file
  std::optional<rlim_t> file_limit;    // ulimit -f, in bytes
  std::vector<std::string> unset_env;  // variables the child does not inherit
  std::chrono::milliseconds timeout{20000};
  std::optional<std::chrono::milliseconds> terminate_after;  // then SIGTERM
};

// In a child after fork: becomes PROGRAM with ARGS.
[[noreturn]] inline void Exec(const std::string& program, const std::vector<std::string>& args) {
  std::vector<char*> argv = {const_cast<char*>(program.c_str())};
  for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  ::execv(program.c_str(), argv.data());
  ::_exit(127);
}

// Starts PROGRAM with ARGS reading the file IN and writing the file OUT; the caller waits for it.
inline pid_t StartChild(const std::string& program, const std::vector<std::string>& args,
                        const std::string& in, const std::string& out) {
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::dup2(::open(in.c_str(), O_RDONLY), 0);
    ::dup2(::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 1);
    Exec(program, args);
  }
  return pid;
}

// Runs PROGRAM with ARGS to its end (or kills it at the timeout), collecting its output.
inline ChildResult RunChild(const std::string& program, const std::vector<std::string>& args,
                            const ChildOptions& options = {}) {
  int in[2], out[2], err[2];
  if (::pipe(in) != 0 || ::pipe(out) != 0 || ::pipe(err) != 0) return {};
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::dup2(in[0], 0);
    ::dup2(out[1], 1);
    ::dup2(err[1], 2);
    for (int fd : {in[0], in[1], out[0], out[1], err[0], err[1]}) ::close(fd);
    if (options.file_limit) {
      const rlimit limit{*options.file_limit, *options.file_limit};
      ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    for (const std::string& name : options.unset_env) ::unsetenv(name.c_str());
    Exec(program, args);
  }
  ::close(in[0]);
  ::close(out[1]);
  ::close(err[1]);
  // Small scripts fit in the pipe; the child may be gone already, so no SIGPIPE for us.
  ::signal(SIGPIPE, SIG_IGN);
  [[maybe_unused]] const ssize_t written =
      ::write(in[1], options.input.data(), options.input.size());
  ::close(in[1]);

  ChildResult result;
  const auto start = std::chrono::steady_clock::now();
  bool terminated = false;
  pollfd fds[2] = {{out[0], POLLIN, 0}, {err[0], POLLIN, 0}};
  std::string* sinks[2] = {&result.out, &result.err};
  int open_pipes = 2;
  while (open_pipes > 0) {
    const auto elapsed = std::chrono::steady_clock::now() - start;
    if (options.terminate_after && !terminated && elapsed >= *options.terminate_after) {
      ::kill(pid, SIGTERM);
      terminated = true;
    }
    if (elapsed >= options.timeout) {
      ::kill(pid, SIGKILL);
      result.timed_out = true;
      break;
    }
    if (::poll(fds, 2, 50) < 0) continue;
    for (int i = 0; i < 2; ++i) {
      if (fds[i].fd < 0 || fds[i].revents == 0) continue;
      char buf[4096];
      const ssize_t n = ::read(fds[i].fd, buf, sizeof buf);
      if (n > 0) {
        sinks[i]->append(buf, static_cast<size_t>(n));
      } else {
        ::close(fds[i].fd);
        fds[i].fd = -1;
        --open_pipes;
      }
    }
  }
  for (const pollfd& p : fds)
    if (p.fd >= 0) ::close(p.fd);
  ::waitpid(pid, &result.status, 0);
  return result;
}

}  // namespace bq::test
