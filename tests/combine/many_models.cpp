/// combine_many_models [COUNT [SIZE [MOST [SEED]]]]: compares combine/ with full enumeration over random models, and
/// tells how many agree. MOST is the greatest number of selections that a model may have.

#include <cstdlib>
#include <iostream>

#include "tests/combine/oracle.h"
#include "tests/combine/random_model.h"

int main(int argc, char** argv)
{
    const auto argument = [&](int at, long otherwise) {
        return argc > at ? std::strtol(argv[at], nullptr, 10) : otherwise;
    };
    const long count = argument(1, 100000);
    const int size = static_cast<int>(argument(2, 2));
    const auto most = static_cast<double>(argument(3, 200000));
    std::mt19937 random(static_cast<unsigned>(argument(4, 1)));
    long wrong = 0;
    double total = 0;
    for (long done = 0; done < count;) {
        const random_model::Case each = random_model::make(random, size);
        const double selections = oracle::selections(each.model, each.situation);
        if (selections > most || (most > 200000 && selections < 200000)) {
            continue;
        }
        ++done;
        total += selections;
        const std::string difference =
            random_model::compare(each, mrl::combine::plan(each.model, each.situation), random);
        if (!difference.empty()) {
            ++wrong;
            std::cout << "model " << done << ": " << difference << '\n'
                      << random_model::describe(each) << std::endl;
            if (wrong == 3) {
                break;
            }
        }
    }
    std::cout << count << " models, " << total << " selections, " << wrong << " differ\n";
    return wrong == 0 ? 0 : 1;
}
