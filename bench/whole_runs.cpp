// Compares the time of whole runs with that of common programs, and their memory with their inputs:
//   whole_runs tavrel folder
// tavkit must be next to tavrel. The folder holds the files of make_inputs. Program and yardstick
// take turns, each in a process of its own. The fastest round of each counts, since other load can
// only slow a run down.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace {

using Command = std::vector<std::string>;
using Files = std::vector<std::string>;

constexpr double kMebibyte = 1 << 20;

/// The lowest cost of a command so far.
struct Cost {
  double seconds = std::numeric_limits<double>::max();
  double peakBytes = std::numeric_limits<double>::max();
};

/// A command, the file that receives its standard output, and the files that it creates.
struct Run {
  Command command;
  std::string output = "/dev/null";
  Files made{};
};

struct Work {
  const char* name;
  Run ours;
  Run yardstick;
  double bar;
  int rounds;
};

void fail(const std::string& what) {
  std::perror(what.c_str());
  std::exit(1);
}

pid_t start(const Run& run) {
  std::vector<char*> arguments;
  for (const std::string& argument : run.command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, run.output.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0644);
  pid_t child = 0;
  if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) {
    fail(run.command.front());
  }
  posix_spawn_file_actions_destroy(&actions);
  return child;
}

/// Runs the command once, after removing its earlier outputs.
void measure(const Run& run, Cost& cost) {
  for (const std::string& file : run.made) {
    std::filesystem::remove(file);
  }
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = start(run);
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
  if (status != 0) {
    fail(run.command.front() + " failed");
  }
  cost.seconds = std::min(cost.seconds, taken.count());
  cost.peakBytes = std::min(cost.peakBytes, 1024.0 * static_cast<double>(usage.ru_maxrss));
}

void printRow(const char* name, double ours, double yardstick, double scale, const char* unit,
              double bar) {
  const double ratio = ours / yardstick;
  std::printf("%-52s %9.1f %9.1f %-3s %6.2f   <= %-5.2f %s\n", name, ours * scale,
              yardstick * scale, unit, ratio, bar, ratio <= bar ? "holds" : "MISSED");
  std::fflush(stdout);
}

/// Measures both sides of the work, prints its row, and returns the tool's cost.
Cost compare(const Work& work) {
  Cost ours;
  Cost yardstick;
  for (int round = 0; round < work.rounds; ++round) {
    measure(work.yardstick, yardstick);
    measure(work.ours, ours);
  }
  printRow(work.name, ours.seconds, yardstick.seconds, 1000, "ms", work.bar);
  return ours;
}

/// Compares the peak memory of the run with the bytes that it must hold. The tolerance covers the
/// program itself, the records and rounding to pages.
void weigh(const char* name, const Cost& run, double payloads, double largestFile) {
  printRow(name, run.peakBytes, payloads + largestFile, 1 / kMebibyte, "MiB", 1.05);
}

Files filesOf(const std::string& folder) {
  Files files;
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    files.push_back(file.path());
  }
  return files;
}

double sizeOf(const std::string& file) {
  return static_cast<double>(std::filesystem::file_size(file));
}

double sumOfSizes(const Files& files) {
  double sum = 0;
  for (const std::string& file : files) {
    sum += sizeOf(file);
  }
  return sum;
}

Run joined(const Files& files) {
  Command command{"cat"};
  command.insert(command.end(), files.begin(), files.end());
  return {command, "joined", {"joined"}};
}

void runAll(const std::string& tavrel) {
  const auto packed = [&tavrel](const std::string& script) {
    return Run{{tavrel, script + ".txt"}, "/dev/null", {script + ".tvb", script + ".h"}};
  };
  const Files small = filesOf("small");
  const Files opaque = filesOf("opaque");
  const auto ffmpeg = [](const char* wav) {
    return Run{{"ffmpeg", "-nostdin", "-loglevel", "error", "-i", wav, "-c:a", "adpcm_ima_wav",
                "ffmpeg.wav"},
               "/dev/null",
               {"ffmpeg.wav"}};
  };

  std::filesystem::create_directory("built");
  const std::string tavkit = std::filesystem::path(tavrel).replace_filename("tavkit");
  const Run extracted{
      {tavkit, "extract", "compress.tvb", "-o", "extracted"}, "/dev/null", {"extracted/long.wav"}};
  const Run decoded{{"ffmpeg", "-nostdin", "-loglevel", "error", "-i", "ffmpeg.wav", "decoded.wav"},
                    "/dev/null",
                    {"decoded.wav"}};

  compare({"Empty bank / true", packed("empty"), {{"true"}}, 1.5, 500});
  const Cost compressRun =
      compare({"Compress 10 minutes / ffmpeg", packed("compress"), ffmpeg("long.wav"), 0.45, 10});
  compare({"Extract 10 minutes of ADPCM / ffmpeg", extracted, decoded, 0.6, 20});
  const Cost compressSmallRun = compare({"Compress 2,000 small WAVs / ffmpeg",
                                         packed("compress_small"), ffmpeg("joined.wav"), 0.2, 20});
  const Cost smallRun =
      compare({"Pack 2,000 small WAVs / cat", packed("small"), joined(small), 1.3, 20});
  compare({"Check 2,000 small WAVs / pack them",
           {{tavkit, "check", "small.txt"}},
           packed("small"),
           1.0,
           20});
  compare({"Build 2,000 small WAVs, none changed / pack them",
           {{tavkit, "build", "small.txt", "--bank-dir", "built", "--header-dir", "built",
             "--depfile", "built/small.d", "--stamp", "built/small.stamp"}},
           packed("small"),
           1.2,
           20});
  compare({"New script for 2,000 small WAVs / cat",
           {{tavkit, "new", "small", "-o", "new.txt"}, "/dev/null", {"new.txt"}},
           joined(small),
           1.0,
           20});
  const Cost opaqueRun =
      compare({"Pack 1 GiB of opaque assets / cat", packed("opaque"), joined(opaque), 1.4, 8});
  compare({"30,000 blocks / 15,000 blocks", packed("blocks30000"), packed("blocks15000"), 2.2, 20});
  compare({"Tempo last in 8 MB / midicsv",
           packed("tempo"),
           {{"midicsv", "tempo.mid", "/dev/null"}},
           0.2,
           20});

  const Cost listRun = compare(
      {"List a bank of 1 GiB / true", {{tavkit, "list", "sparse.tvb"}}, {{"true"}}, 5, 500});
  compare({"List a bank of 1 GiB as JSON / true",
           {{tavkit, "list", "--json", "sparse.tvb"}},
           {{"true"}},
           5,
           500});

  weigh("Memory to list a bank of 1 GiB / 6 MiB", listRun, 6 * kMebibyte, 0);
  weigh("Memory for 2,000 small WAVs / payloads + a file", smallRun, sumOfSizes(small),
        sizeOf("small/1999.wav"));
  weigh("Memory for 1 GiB of assets / payloads + a file", opaqueRun, sumOfSizes(opaque),
        sizeOf("opaque/0.dat"));
  weigh("Memory to compress / payloads + a file", compressRun, sizeOf("long.wav") / 4,
        sizeOf("long.wav"));
  constexpr double kWaiting = 64 * kMebibyte;  // at most, of sounds that wait to be encoded
  weigh("Memory to compress small ones / payloads + 64 MiB", compressSmallRun,
        sumOfSizes(small) / 4, kWaiting);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 3) {
    std::fputs("Usage: whole_runs tavrel folder\n", stderr);
    return 1;
  }
  const std::string tavrel = std::filesystem::absolute(arguments[1]);
  std::filesystem::current_path(arguments[2]);
  runAll(tavrel);
  return 0;
}
