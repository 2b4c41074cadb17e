// SPDX-License-Identifier: GPL-3.0-or-later
// The programs as they are played have what keeps a fault from being made use of: they lie anywhere in memory, nothing
// of them is both written and run, and their calls and stacks are checked.
#include <elf.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace velorin::testing {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;

/// A program's file as the system loads it.
class program_file {
 public:
  explicit program_file(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (bytes_.size() < sizeof(Elf64_Ehdr) || bytes_.compare(0, SELFMAG, ELFMAG) != 0) {
      throw std::runtime_error("no program: " + path);
    }
  }

  Elf64_Ehdr head() const { return at<Elf64_Ehdr>(0); }
  std::vector<Elf64_Phdr> segments(std::uint32_t type) const {
    std::vector<Elf64_Phdr> found;
    for (std::size_t i = 0; i < head().e_phnum; ++i) {
      const auto one = at<Elf64_Phdr>(head().e_phoff + i * sizeof(Elf64_Phdr));
      if (one.p_type == type) found.push_back(one);
    }
    return found;
  }
  /// The value of an entry for the loader; 0 without one.
  std::uint64_t for_loader(std::int64_t tag) const {
    const Elf64_Phdr list = segments(PT_DYNAMIC).at(0);
    for (std::size_t from = 0; from < list.p_filesz; from += sizeof(Elf64_Dyn)) {
      const auto entry = at<Elf64_Dyn>(list.p_offset + from);
      if (entry.d_tag == tag) return entry.d_un.d_val;
    }
    return 0;
  }
  /// The names of what it takes from libraries.
  std::vector<std::string> needed() const {
    std::vector<std::string> names;
    for (const Elf64_Shdr& table : sections(SHT_DYNSYM)) {
      for (const Elf64_Sym& symbol : symbols_of(table)) {
        if (symbol.st_shndx == SHN_UNDEF) names.push_back(name_of(table, symbol));
      }
    }
    return names;
  }
  /// The first bytes of a procedure of its own.
  std::string beginning_of(const std::string& procedure, std::size_t count) const {
    for (const Elf64_Shdr& table : sections(SHT_SYMTAB)) {
      for (const Elf64_Sym& symbol : symbols_of(table)) {
        if (name_of(table, symbol) != procedure || symbol.st_shndx == SHN_UNDEF) continue;
        const auto home = section(symbol.st_shndx);
        return bytes_.substr(symbol.st_value - home.sh_addr + home.sh_offset, count);
      }
    }
    throw std::runtime_error("no procedure " + procedure);
  }

 private:
  template <typename Part>
  Part at(std::size_t offset) const {
    Part part;
    std::memcpy(&part, bytes_.substr(offset, sizeof part).data(), sizeof part);
    return part;
  }
  Elf64_Shdr section(std::size_t number) const { return at<Elf64_Shdr>(head().e_shoff + number * sizeof(Elf64_Shdr)); }
  std::vector<Elf64_Shdr> sections(std::uint32_t type) const {
    std::vector<Elf64_Shdr> found;
    for (std::size_t i = 0; i < head().e_shnum; ++i) {
      if (section(i).sh_type == type) found.push_back(section(i));
    }
    return found;
  }
  std::vector<Elf64_Sym> symbols_of(const Elf64_Shdr& table) const {
    std::vector<Elf64_Sym> symbols;
    for (std::size_t from = 0; from < table.sh_size; from += sizeof(Elf64_Sym)) {
      symbols.push_back(at<Elf64_Sym>(table.sh_offset + from));
    }
    return symbols;
  }
  std::string name_of(const Elf64_Shdr& table, const Elf64_Sym& symbol) const {
    return std::string(bytes_.c_str() + section(table.sh_link).sh_offset + symbol.st_name);
  }

  std::string bytes_;
};

class Hardened : public ::testing::TestWithParam<const char*> {
 protected:
  program_file program_{GetParam()};
};

TEST_P(Hardened, ItLiesAnywhereInMemory) {
  EXPECT_EQ(program_.head().e_type, ET_DYN);
  EXPECT_NE(program_.for_loader(DT_FLAGS_1) & DF_1_PIE, 0U);
}

TEST_P(Hardened, WhatTheLoaderHasFilledInIsReadOnly) {
  EXPECT_EQ(program_.segments(PT_GNU_RELRO).size(), 1U);
  EXPECT_NE(program_.for_loader(DT_FLAGS_1) & DF_1_NOW, 0U) << "else some is filled in later";
}

TEST_P(Hardened, NothingIsBothWrittenAndRun) {
  for (const std::uint32_t type : {PT_LOAD, PT_GNU_STACK}) {
    EXPECT_FALSE(program_.segments(type).empty());
    for (const Elf64_Phdr& one : program_.segments(type)) {
      EXPECT_NE(one.p_flags & (PF_W | PF_X), static_cast<Elf64_Word>(PF_W | PF_X)) << type;
    }
  }
}

TEST_P(Hardened, StacksAndSizesAreChecked) {
  std::vector<std::string> needed = program_.needed();
  EXPECT_THAT(needed, Contains("__stack_chk_fail"));
  std::erase(needed, "__stack_chk_fail");
  EXPECT_THAT(needed, Contains(EndsWith("_chk"))) << "calls that know how much room there is";
}

#ifdef VELORIN_CF_PROTECTION
TEST_P(Hardened, JumpsGoToTheBeginningsOfProceduresAlone) {
  EXPECT_EQ(program_.beginning_of("main", 4), "\xF3\x0F\x1E\xFA");
}
#endif

constexpr const char* programs[] = {VELORIN_PROGRAMS};

INSTANTIATE_TEST_SUITE_P(Programs, Hardened, ::testing::ValuesIn(programs), [](const auto& of) {
  std::string name = of.param;
  name = name.substr(name.rfind('/') + 1);
  std::erase(name, '-');
  return name;
});

}  // namespace
}  // namespace velorin::testing
