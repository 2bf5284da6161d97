#include <elf.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

// Shipped programs are built so that a mistake is hard to use: the files themselves say so.

namespace {

/// A program's file, as the loader reads it.
class Program {
public:
    explicit Program(const std::string &path) {
        std::ifstream file(path, std::ios::binary);
        m_bytes.assign(std::istreambuf_iterator<char>(file), {});
        if (m_bytes.size() < sizeof(Elf64_Ehdr) || m_bytes[EI_CLASS] != ELFCLASS64)
            return;
        m_header = at<Elf64_Ehdr>(0);
        for (int index = 0; index < m_header.e_phnum; ++index)
            m_segments.push_back(at<Elf64_Phdr>(m_header.e_phoff + index * sizeof(Elf64_Phdr)));
        for (int index = 0; index < m_header.e_shnum; ++index)
            m_sections.push_back(at<Elf64_Shdr>(m_header.e_shoff + index * sizeof(Elf64_Shdr)));
    }

    [[nodiscard]] bool isPositionIndependent() const {
        return m_header.e_type == ET_DYN && (dynamic(DT_FLAGS_1) & DF_1_PIE) != 0;
    }
    [[nodiscard]] bool isBoundAtStart() const {
        return (dynamic(DT_FLAGS) & DF_BIND_NOW) != 0 || (dynamic(DT_FLAGS_1) & DF_1_NOW) != 0;
    }
    [[nodiscard]] bool hasSegment(Elf64_Word type) const {
        for (const auto &segment : m_segments) {
            if (segment.p_type == type)
                return true;
        }
        return false;
    }
    [[nodiscard]] bool isStackExecutable() const {
        for (const auto &segment : m_segments) {
            if (segment.p_type == PT_GNU_STACK)
                return (segment.p_flags & PF_X) != 0;
        }
        return true;
    }
    /// The names of the functions that it takes from libraries.
    [[nodiscard]] std::set<std::string> imports() const {
        std::set<std::string> found;
        for (const auto &section : m_sections) {
            if (section.sh_type != SHT_DYNSYM)
                continue;
            const auto names = m_sections[section.sh_link].sh_offset;
            for (auto offset = section.sh_offset; offset < section.sh_offset + section.sh_size;
                 offset += sizeof(Elf64_Sym))
                found.insert(m_bytes.data() + names + at<Elf64_Sym>(offset).st_name);
        }
        return found;
    }

private:
    template <typename Part>
    [[nodiscard]] Part at(std::size_t offset) const {
        Part part{};
        if (offset + sizeof part <= m_bytes.size())
            std::memcpy(&part, m_bytes.data() + offset, sizeof part);
        return part;
    }

    [[nodiscard]] Elf64_Xword dynamic(Elf64_Sxword tag) const {
        for (const auto &section : m_sections) {
            if (section.sh_type != SHT_DYNAMIC)
                continue;
            for (auto offset = section.sh_offset; offset < section.sh_offset + section.sh_size;
                 offset += sizeof(Elf64_Dyn)) {
                const auto entry = at<Elf64_Dyn>(offset);
                if (entry.d_tag == tag)
                    return entry.d_un.d_val;
            }
        }
        return 0;
    }

    std::vector<char> m_bytes;
    Elf64_Ehdr m_header{};
    std::vector<Elf64_Phdr> m_segments;
    std::vector<Elf64_Shdr> m_sections;
};

class Shipped : public testing::TestWithParam<const char *> {};

} // namespace

TEST_P(Shipped, IsBuiltToMakeMistakesHardToUse) {
    const Program program(GetParam());
    EXPECT_TRUE(program.isPositionIndependent());
    EXPECT_TRUE(program.isBoundAtStart());
    EXPECT_TRUE(program.hasSegment(PT_GNU_RELRO));
    EXPECT_FALSE(program.isStackExecutable());
    const auto imports = program.imports();
    EXPECT_TRUE(imports.contains("__stack_chk_fail"));
    const auto isChecking = [](const auto &name) { return name.starts_with("__") && name.ends_with("_chk"); };
    EXPECT_TRUE(std::any_of(imports.begin(), imports.end(), isChecking));
}

INSTANTIATE_TEST_SUITE_P(Program, Shipped, testing::Values(PALOMET_EXECUTABLE, PALOMET_GUARD),
                         [](const auto &tested) { return tested.index == 0 ? "Palomet" : "Guard"; });
