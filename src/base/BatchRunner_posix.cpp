// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/BatchRunner.h"
#include "base/FailureTexts.h"

#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr const char* wine = "wine";

class WineProcess : public RunningBatch
{
public:
    explicit WineProcess(pid_t process) : m_process(process) {}

    bool hasEnded() override
    {
        if (m_process != 0 && ::waitpid(m_process, nullptr, WNOHANG) != 0) {
            m_process = 0; // ended, or nobody's child any more
        }
        return m_process == 0;
    }

private:
    pid_t m_process;
};

bool isOnPath(std::string_view program)
{
    const char* const variable = std::getenv("PATH");
    std::string_view rest = variable == nullptr ? "" : variable;
    while (!rest.empty()) {
        const std::size_t end = rest.find(':');
        if (::access((fs::path(rest.substr(0, end)) / program).c_str(), X_OK) == 0) {
            return true;
        }
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return false;
}

// Wine's own remarks would bury what the batch file says.
std::vector<char*> childEnvironment()
{
    static char quiet[] = "WINEDEBUG=-all";
    std::vector<char*> variables;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        variables.push_back(*variable);
    }
    if (std::getenv("WINEDEBUG") == nullptr) {
        variables.push_back(quiet);
    }
    variables.push_back(nullptr);
    return variables;
}

class SpawnActions
{
public:
    SpawnActions()
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawnattr_init(&m_attributes);
        // The key that interrupts this program in a terminal is not meant for the batch file.
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETPGROUP);
    }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;
    ~SpawnActions()
    {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }

    // False when there is no memory for it.
    bool prepare(const char* folder, const char* output)
    {
        return posix_spawn_file_actions_addchdir_np(&m_actions, folder) == 0 &&
               // At its end, so that no key is waited for.
               posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0) == 0 &&
               posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, output,
                                                O_WRONLY | O_CREAT | O_TRUNC, 0666) == 0 &&
               posix_spawn_file_actions_adddup2(&m_actions, STDOUT_FILENO, STDERR_FILENO) == 0;
    }
    const posix_spawn_file_actions_t* actions() const { return &m_actions; }
    const posix_spawnattr_t* attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

// Where the output cannot be kept, it is dropped.
fs::path usableOutput(const fs::path& output)
{
    const int file = ::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0) {
        return "/dev/null";
    }
    ::close(file);
    return fs::absolute(output);
}

class WineRunner : public BatchRunner
{
public:
    Problem whatIsMissing() const override
    {
        if (isOnPath(wine)) {
            return std::nullopt;
        }
        return Failure{{"The tools of the level editor are Windows programs: on this system they need Wine. "
                        "Install it (the command [wine]) and try again.",
                        "Les outils de l'éditeur de niveaux sont des programmes Windows : sur ce système ils "
                        "ont besoin de Wine. Installez-le (la commande [wine]) et réessayez."}};
    }

    Result<std::unique_ptr<RunningBatch>> start(const fs::path& batchFile, const fs::path& output) override
    {
        SpawnActions how;
        pid_t process = 0;
        std::string words[] = {wine, "cmd", "/c", batchFile.filename().string()};
        char* const arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(),
                                   nullptr};
        std::vector<char*> environment = childEnvironment();
        const fs::path kept = usableOutput(output);
        const int error = how.prepare(batchFile.parent_path().c_str(), kept.c_str())
                              ? ::posix_spawnp(&process, wine, how.actions(), how.attributes(), arguments,
                                               environment.data())
                              : ENOMEM;
        if (error != 0) {
            return cannotRead(batchFile, {error, std::generic_category()});
        }
        return std::unique_ptr<RunningBatch>(std::make_unique<WineProcess>(process));
    }
};

} // namespace

std::unique_ptr<BatchRunner> makeSystemBatchRunner(BatchConsole /*console*/)
{
    return std::make_unique<WineRunner>();
}

} // namespace tavrel
