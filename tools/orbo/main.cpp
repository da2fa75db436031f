#include <cstdio>
int main() { std::puts("Project Orbo 0.5.0"); }
