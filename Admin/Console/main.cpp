#include <cstdio>

int main()
{
    std::puts("Trellisview");
    return 0;
}
