// launch PROGRAM ARGUMENT...: runs the program, which finds the time of its start in PEERS_START.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <unistd.h>

int main(int argc, char** argv)
{
    if (argc < 2)
        return 2;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    setenv("PEERS_START", std::to_string(std::chrono::nanoseconds(now).count()).c_str(), 1);
    execv(argv[1], argv + 1);
    std::perror(argv[1]);
    return 1;
}
