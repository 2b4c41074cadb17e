// SPDX-License-Identifier: GPL-3.0-or-later
#include "faults/traced_run.h"

#include <sys/ptrace.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <stdexcept>

namespace velorin::testing {

namespace {

constexpr int call_mark = 0x80;  // in the signal of a stop at a call
constexpr int refusal = 125;     // exit status of a process that may not be traced

}  // namespace

traced_run::traced_run(workbench& bench, program what) : bench_(bench) {
  what.prepare = [earlier = what.prepare] {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(refusal);
    if (earlier) earlier();
  };
  process_ = bench_.start(what);
  if (!wait()) {
    if (!WIFEXITED(status_) || WEXITSTATUS(status_) != refusal)
      throw std::runtime_error("a traced program does not start");
    refused_ = "the system does not let programs be traced";
    return;
  }
  const long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL;
  if (::ptrace(PTRACE_SETOPTIONS, process_, nullptr, options) != 0) {
    refused_ = std::string("the system does not let calls be traced: ") + std::strerror(errno);
  }
}

traced_run::~traced_run() { kill(); }

bool traced_run::wait() {
  while (::waitpid(process_, &status_, 0) < 0) {
    if (errno != EINTR) throw std::runtime_error("a traced program is gone");
  }
  ended_ = WIFEXITED(status_) || WIFSIGNALED(status_);
  return !ended_;
}

std::optional<call_stop> traced_run::next() {
  while (!ended_) {
    if (::ptrace(PTRACE_SYSCALL, process_, nullptr, pending_signal_) != 0) {
      throw std::runtime_error(std::string("a traced program does not go on: ") + std::strerror(errno));
    }
    pending_signal_ = 0;
    if (!wait()) break;
    if (WSTOPSIG(status_) != (SIGTRAP | call_mark)) {
      pending_signal_ = WSTOPSIG(status_);  // the program's own
      continue;
    }
    __ptrace_syscall_info info{};
    if (::ptrace(PTRACE_GET_SYSCALL_INFO, process_, sizeof info, &info) <= 0) {
      throw std::runtime_error(std::string("a call cannot be looked at: ") + std::strerror(errno));
    }
    call_stop stop;
    stop.entry = info.op == PTRACE_SYSCALL_INFO_ENTRY;
    if (stop.entry) {
      stop.number = info.entry.nr;
      std::copy(std::begin(info.entry.args), std::end(info.entry.args), std::begin(stop.words));
    } else {
      stop.result = info.exit.rval;
    }
    return stop;
  }
  return std::nullopt;
}

bool traced_run::kill() {
  if (ended_) return false;
  ::kill(process_, SIGKILL);
  while (wait()) continue;
  return true;
}

std::string traced_run::text_at(std::uint64_t address) const {
  std::string text;
  for (;;) {
    char piece[64];
    // Not beyond the page, of which the next may not be there.
    const std::size_t size = std::min<std::size_t>(sizeof piece, 4096 - (address + text.size()) % 4096);
    const iovec to{piece, size};
    const iovec from{reinterpret_cast<void*>(address + text.size()), size};
    if (::process_vm_readv(process_, &to, 1, &from, 1, 0) != static_cast<ssize_t>(size)) {
      throw std::runtime_error("a traced program's memory cannot be read");
    }
    char* const end = std::find(piece, piece + size, '\0');
    text.append(piece, end);
    if (end != piece + size) return text;
  }
}

}  // namespace velorin::testing
