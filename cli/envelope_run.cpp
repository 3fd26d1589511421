#include "cli/envelope_run.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <set>
#include <thread>

#include "cli/failure.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "combine/decimal.h"

namespace mrl::cli {

using combine::Envelope;

EnvelopeWorker::EnvelopeWorker(const combine::ResponseFile& file,
                               const std::vector<PlannedSituation>& situations)
    : m_file(file), m_situations(situations)
{
    for (const PlannedSituation& each : situations) {
        m_envelopes.emplace_back(each.plan, file.numbers());
    }
}

/// Reads the responses that stand beside the one of a job, if they aren't those of the last one.
void EnvelopeWorker::readSet(const Job& job, std::string& error)
{
    m_row = job.raw.row;
    if (job.set == m_set) {
        return;
    }
    m_others.clear();
    m_otherRows.clear();
    m_set = job.set;
    std::set<std::string> names;
    for (const combine::RawResponse& raw : job.set ? *job.set : std::vector<combine::RawResponse>{}) {
        combine::Response other;
        if (error = m_file.read(raw, other); !error.empty()) {
            return;
        }
        if (!names.insert(other.name).second) {
            error = "row " + std::to_string(raw.row) + ": response " + other.name + " stands twice in set " +
                    other.set;
            return;
        }
        m_others.push_back(std::move(other));
        m_otherRows.push_back(raw.row);
    }
}

ExtremeRow EnvelopeWorker::extreme(std::size_t situation, Envelope::Direction direction)
{
    Envelope& envelope = m_envelopes[situation];
    const auto combination = envelope.combination(m_response.values.data(), direction);
    ExtremeRow row;
    if (!combination) {
        return row; // can't be: the row is finite, and the situation has a combination
    }
    row.value = envelope.value(combination->key, m_response.values.data());
    row.key = combine::keyText(combination->key);
    row.leading = combination->leading;
    row.expression = m_situations[situation].expression(combination->expression);
    for (std::size_t i = 0; i < m_others.size(); ++i) {
        if (m_otherRows[i] != m_row) {
            row.with.emplace_back(m_others[i].name,
                                  envelope.value(combination->key, m_others[i].values.data()));
        }
    }
    return row;
}

std::vector<EnvelopeRow> EnvelopeWorker::rows(const Job& job, std::string& error)
{
    error = m_file.read(job.raw, m_response);
    if (error.empty()) {
        readSet(job, error);
    }
    std::vector<EnvelopeRow> rows;
    for (std::size_t i = 0; error.empty() && i < m_situations.size(); ++i) {
        rows.push_back({m_response.name, m_situations[i].situation->name,
                        extreme(i, Envelope::Direction::Max), extreme(i, Envelope::Direction::Min)});
    }
    return rows;
}

namespace {

constexpr std::size_t BLOCK_ROWS = 1024;
constexpr std::size_t BLOCK_BYTES = 16 << 20; // whichever comes first

/// Values and prints blocks of rows on all cores.
class EnvelopeRun
{
  public:
    EnvelopeRun(std::string name, combine::ResponseFile& file,
                const std::vector<PlannedSituation>& situations, const EnvelopePrinter& printer)
        : m_name(std::move(name)), m_file(file), m_printer(printer)
    {
        for (unsigned i = 0; i < std::max(1u, std::thread::hardware_concurrency()); ++i) {
            m_workers.push_back(std::make_unique<EnvelopeWorker>(file, situations));
        }
    }

    void run(bool concurrent);

  private:
    bool readBlock(ResponseSets* sets);
    void valueBlock();
    void printBlock();
    void work(EnvelopeWorker& worker);

    struct Result
    {
        std::vector<std::string> rows;
        std::string error;
    };

    std::string m_name;
    combine::ResponseFile& m_file;
    const EnvelopePrinter& m_printer;
    std::vector<std::unique_ptr<EnvelopeWorker>> m_workers;
    std::vector<EnvelopeWorker::Job> m_jobs;
    std::vector<Result> m_results;
    std::atomic<std::size_t> m_next{0};
    Output m_output;
    Progress m_progress;
    std::uint64_t m_responses = 0;
    bool m_isFirst = true;
};

bool EnvelopeRun::readBlock(ResponseSets* sets)
{
    m_jobs.clear();
    std::size_t bytes = 0;
    for (EnvelopeWorker::Job job; m_jobs.size() < BLOCK_ROWS && bytes < BLOCK_BYTES && m_file.next(job.raw);
         m_jobs.push_back(job)) {
        bytes += job.raw.bytes.size();
        job.set = sets == nullptr ? nullptr : sets->of(job.raw);
    }
    return !m_jobs.empty();
}

void EnvelopeRun::work(EnvelopeWorker& worker)
{
    for (std::size_t i; (i = m_next.fetch_add(1)) < m_jobs.size();) {
        for (const EnvelopeRow& row : worker.rows(m_jobs[i], m_results[i].error)) {
            m_results[i].rows.push_back(m_printer.row(row));
        }
    }
}

void EnvelopeRun::valueBlock()
{
    m_results.assign(m_jobs.size(), {});
    m_next = 0;
    std::vector<std::thread> others;
    for (std::size_t i = 1; i < std::min(m_workers.size(), m_jobs.size()); ++i) {
        others.emplace_back([this, i] { work(*m_workers[i]); });
    }
    work(*m_workers.front());
    for (std::thread& each : others) {
        each.join();
    }
}

void EnvelopeRun::printBlock()
{
    for (const Result& result : m_results) {
        if (!result.error.empty()) {
            throw Failure{ExitCode::File, m_name + ": " + result.error};
        }
        for (const std::string& row : result.rows) {
            m_output.write(m_printer.separator(m_isFirst));
            m_output.write(row);
            m_isFirst = false;
        }
    }
    m_responses += m_results.size();
    m_progress.show(m_responses, m_file.progress());
}

void EnvelopeRun::run(bool concurrent)
{
    std::unique_ptr<ResponseSets> sets;
    if (concurrent) {
        sets = std::make_unique<ResponseSets>(m_file);
    }
    m_output.write(m_printer.head());
    while (readBlock(sets.get())) {
        valueBlock();
        printBlock();
    }
    if (!m_file.error().empty()) {
        throw Failure{ExitCode::File, m_name + ": " + m_file.error()};
    }
    m_output.write(m_printer.tail(m_isFirst));
    m_output.finish();
}

} // namespace

void printEnvelope(const std::string& name, combine::ResponseFile& file,
                   const std::vector<PlannedSituation>& situations, const EnvelopePrinter& printer,
                   bool concurrent)
{
    EnvelopeRun(name, file, situations, printer).run(concurrent);
}

} // namespace mrl::cli
