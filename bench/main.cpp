#include "bench/figure.h"

int main(int argc, char** argv) { return bench::run(argc, argv); }
