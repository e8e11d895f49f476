// What each role may do, tried by plain SQL: the database refuses, whatever program is connected.

#include "ledger/Outbox.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/ledger_server/TestServer.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

struct Attempt {
    const char* what;
    const char* user;
    const char* script;
    const char* code; ///< of the refusal
};

// A batch of one row, whole and with its audit entry, as a program of somebody's own would write it. %1: its
// state, %2: quantity, %3: amount, %4: day, %5: what goes before the entry.
const char* const Creation =
    "BEGIN; UPDATE ledger_number SET value = value + 1 WHERE name = 'last_batch'; "
    "INSERT INTO batch SELECT value, '1001', gen_random_uuid()::text, 'f', '', 'AITWAP', 1, 0, 0, "
    "(extract(epoch FROM now()) * 1000)::bigint, %4, session_user, '%1' FROM ledger_number WHERE name = "
    "'last_batch'; "
    "INSERT INTO instance SELECT n.value, 1, '1001', 'AITWAP', 'created', 0, '{}', '', 0, 0, '', 0, 0, 0, 0, "
    "'', b.day FROM ledger_number n JOIN batch b ON b.number = n.value WHERE n.name = 'last_batch'; "
    "INSERT INTO instance_leg SELECT value, 1, 1, '1001', '600000.SH', 'SH', 'Buy', %2, 0, %3, 0, 0 FROM "
    "ledger_number "
    "WHERE name = 'last_batch'; "
    "INSERT INTO batch_table SELECT value, '1001', '[]', '[]' FROM ledger_number WHERE name = 'last_batch'; "
    "%5";

/// An audit entry whose hash follows, by a function of the connected program.
const char* const EntryOfOwn =
    "CREATE FUNCTION pg_temp.part(t text) RETURNS text LANGUAGE sql AS $$ SELECT octet_length(convert_to(t, "
    "'UTF8')) || "
    "':' || t $$; "
    "UPDATE ledger_number SET value = value + 1 WHERE name = 'last_audit'; "
    "INSERT INTO audit_entry SELECT n.value, t.at, session_user, 'own', 'create', '', '{}', "
    "encode(sha256(convert_to(pg_temp.part(e.hash) || pg_temp.part(n.value::text) || "
    "pg_temp.part(t.at::text) || "
    "pg_temp.part(session_user::text) || '3:own6:create0:2:{}', 'UTF8')), 'hex') "
    "FROM ledger_number n JOIN audit_entry e ON e.number = n.value - 1, "
    "(SELECT (extract(epoch FROM now()) * 1000)::bigint AS at) t WHERE n.name = 'last_audit'; COMMIT;";

QString creation(const char* state, const char* quantity, const char* amount, const QString& rest = QString(),
                 const char* day = "to_char(now() AT TIME ZONE 'UTC' + interval '8 hours', 'YYYY-MM-DD')")
{
    return QString::fromLatin1(Creation).arg(QLatin1String(state), QLatin1String(quantity),
                                             QLatin1String(amount), QLatin1String(day),
                                             rest + QLatin1String(EntryOfOwn));
}

const Attempt Attempts[] = {
    {"a trader deletes a batch", "anna", "DELETE FROM batch WHERE number = 1", "42501"},
    {"a trader empties a table", "anna", "TRUNCATE audit_entry", "42501"},
    {"a trader changes an entry", "anna", "UPDATE audit_entry SET what = 'nothing'", "42501"},
    {"a trader deletes an entry", "anna", "DELETE FROM audit_entry", "42501"},
    {"a trader changes what was ordered", "anna", "UPDATE instance_leg SET quantity = 1", "42501"},
    {"a trader changes a parameter", "anna", "UPDATE instance SET parameters = '{}'", "42501"},
    {"a trader changes an amount", "anna", "UPDATE instance_leg SET amount = 0", "42501"},
    {"a trader changes the day's sums", "anna", "UPDATE account_day SET buy = 0", "42501"},
    {"a trader changes the table of a batch", "anna", "UPDATE batch_table SET row_texts = '[]'", "42501"},
    {"a trader renames the author", "anna", "UPDATE batch SET created_by = 'bert'", "42501"},
    {"a trader puts the counters back", "anna",
     "UPDATE ledger_number SET value = 0 WHERE name = 'last_audit'", "AL001"},
    {"a trader takes a number for nothing", "anna",
     "UPDATE ledger_number SET value = value + 1 WHERE name = 'last_batch'", "AL006"},
    {"a trader changes the schema's version", "anna",
     "UPDATE ledger_number SET value = value + 1 WHERE name = 'schema_version'", "AL001"},
    {"a trader widens the clock", "anna",
     "UPDATE ledger_number SET value = value + 1 WHERE name = 'clock_tolerance'", "AL001"},
    {"a trader adds a row to an old batch", "anna",
     "INSERT INTO instance SELECT batch_number, 9, account, strategy, 'created', 0, '{}', '', 0, 0, '', 0, "
     "0, 0, 0, '', day "
     "FROM instance LIMIT 1",
     "AL001"},
    {"a trader adds a leg to an old row", "anna",
     "INSERT INTO instance_leg SELECT batch_number, row_no, 2, account, symbol, exchange, direction, 1, 1, "
     "1, 0, 0 FROM "
     "instance_leg LIMIT 1",
     "AL001"},
    {"a trader starts without an entry", "anna",
     "UPDATE instance SET state = 'running' WHERE batch_number = 1", "AL007"},
    {"a trader fills his order himself", "anna", "UPDATE instance SET filled = 100 WHERE batch_number = 1",
     "AL002"},
    {"a trader brings a withdrawn row back", "anna",
     "UPDATE instance SET state = 'withdrawn'; UPDATE instance SET state = 'created'", "AL002"},
    {"a trader hides a batch as withdrawn", "anna", "UPDATE batch SET state = 'withdrawn' WHERE number = 1",
     "AL001"},
    {"a trader approves his own batch", "anna",
     "UPDATE approval SET decided_by = 'anna' WHERE batch_number = 2", "42501"},
    {"a trader lets his own batch go", "anna", "UPDATE batch SET state = 'created' WHERE number = 2",
     "AL005"},
    {"a trader starts a batch that waits", "anna",
     "UPDATE instance SET state = 'running' WHERE batch_number = 2", "AL002"},
    {"a trader lifts a halt", "anna", "DELETE FROM halt", "42501"},
    {"a trader changes a halt", "anna", "UPDATE halt SET account = 'x'", "42501"},
    {"a trader halts in another's name", "anna", "INSERT INTO halt VALUES ('7', 'r', 'bert', 0)", "42501"},
    {"a trader raises a ceiling", "anna", "UPDATE ledger_limit SET max_day_buy = NULL", "42501"},
    {"a trader removes the ceilings", "anna", "DELETE FROM ledger_limit", "42501"},
    {"a trader takes himself out of the general ceilings", "anna",
     "INSERT INTO ledger_limit (account, replaces_general) VALUES ('1001', true)", "42501"},
    {"a trader halts without an entry", "anna", "INSERT INTO halt VALUES ('7', 'r', 'anna', 0)", "AL007"},
    {"a trader sets a price", "anna", "INSERT INTO ledger_price VALUES ('600000.SH', 0.01)", "42501"},
    {"a trader registers a gateway", "anna",
     "INSERT INTO gateway VALUES ('1001', 's', 'h', 1, 'loggedOn', 0)", "42501"},
    {"a trader forgets a gateway", "anna", "DELETE FROM gateway", "42501"},
    {"a trader switches the rules off", "anna", "ALTER TABLE batch DISABLE TRIGGER ALL", "42501"},
    {"a trader passes the rules by", "anna", "SET session_replication_role = replica", "42501"},
    {"a trader replaces a rule", "anna",
     "CREATE OR REPLACE FUNCTION public.ledger_is_new(text, bigint) RETURNS boolean LANGUAGE sql AS 'SELECT "
     "true'",
     "42501"},
    {"a trader becomes an approver", "anna", "GRANT algodesk_approver TO anna", "42501"},
    {"a trader takes the role of an approver", "anna", "SET ROLE algodesk_approver", "42501"},
    {"an author who is an approver, too, approves his own", "chef",
     "UPDATE approval SET decided_by = 'chef' WHERE batch_number = 3; UPDATE batch SET state = 'created' "
     "WHERE number = 3",
     "AL005"},
    {"an approver approves in another's name", "bert",
     "UPDATE approval SET decided_by = 'anna' WHERE batch_number = 2", "AL005"},
    {"an approver changes the digest", "bert", "UPDATE approval SET digest = ''", "42501"},
    {"an approver lets a batch go undecided", "bert", "UPDATE batch SET state = 'created' WHERE number = 2",
     "AL005"},
    {"an approver approves without an entry", "bert",
     "UPDATE approval SET decided_by = 'bert', decided_at = 1 WHERE batch_number = 2", "AL007"},
    {"an approver creates", "bert", "INSERT INTO batch_table VALUES (9, '1001', '[]', '[]')", "42501"},
    {"an approver lifts a halt", "bert", "DELETE FROM halt", "42501"},
    {"an approver raises a ceiling", "bert", "UPDATE ledger_limit SET max_day_buy = NULL", "42501"},
    {"an approver deletes history", "bert", "DELETE FROM batch", "42501"},
    {"risk creates", "rosa", "INSERT INTO batch_table VALUES (9, '1001', '[]', '[]')", "42501"},
    {"risk approves", "rosa", "UPDATE approval SET decided_by = 'rosa'", "42501"},
    {"risk lifts a halt without an entry", "rosa", "DELETE FROM halt", "AL007"},
    {"risk deletes history", "rosa", "DELETE FROM audit_entry", "42501"},
    {"an auditor writes", "otto", "INSERT INTO audit_entry VALUES (1, 0, 'otto', '', '', '', '', '')",
     "42501"},
    {"an auditor halts", "otto", "INSERT INTO halt VALUES ('7', 'r', 'otto', 0)", "42501"},
    {"an auditor takes a number", "otto",
     "UPDATE ledger_number SET value = value + 1 WHERE name = 'last_audit'", "42501"},
    {"a gateway creates", "gate", "INSERT INTO batch_table VALUES (9, '1001', '[]', '[]')", "42501"},
    {"a gateway starts what waits", "gate", "UPDATE instance SET state = 'queued' WHERE batch_number = 2",
     "AL002"},
    {"a gateway changes an execution", "gate", "UPDATE execution SET exec_id = ''", "42501"},
    {"a gateway lifts a halt", "gate", "DELETE FROM halt", "42501"},
    {"a gateway raises a ceiling", "gate", "UPDATE ledger_limit SET max_day_buy = NULL", "42501"},
    {"a gateway changes an entry", "gate", "UPDATE audit_entry SET what = 'nothing'", "42501"},
    {"the owner deletes an entry", "postgres", "DELETE FROM audit_entry", "AL001"},
    {"the owner changes an entry", "postgres", "UPDATE audit_entry SET what = 'nothing'", "AL001"},
    {"the owner empties the trail", "postgres", "TRUNCATE audit_entry", "AL001"},
    {"an outsider reads", "nobody", "SELECT * FROM public.batch", "42501"},
};

/// A ledger with a batch (1), two that wait (2 of anna, 3 of chef), and a halt of another account.
class Floor {
public:
    Floor() : database(TestServer::instance().makeLedger())
    {
        TestServer& server = TestServer::instance();
        server.makeLogin("anna"_s, {"trader"_s});
        server.makeLogin("bert"_s, {"approver"_s});
        server.makeLogin("chef"_s, {"trader"_s, "approver"_s});
        server.makeLogin("rosa"_s, {"risk"_s});
        server.makeLogin("otto"_s, {"auditor"_s});
        server.makeLogin("gate"_s, {"gateway"_s});
        server.makeLogin("nobody"_s, {"auditor"_s});
        server.run(database, "SET client_min_messages = error; REVOKE algodesk_auditor FROM nobody"_s);
        limits.approvalAmount = 5000;
        EXPECT_EQ(as("anna"_s)->createBatch(worth(100)).error, QString());
        EXPECT_EQ(as("anna"_s)->createBatch(worth(5000), terms()).value.state, BatchState::Waiting);
        EXPECT_EQ(as("chef"_s)->createBatch(worth(6000), terms()).value.state, BatchState::Waiting);
        EXPECT_EQ(as("anna"_s)->halt("9999"_s, "行情异常"_s).error, QString());
    }

    std::shared_ptr<Ledger> as(const QString& user) const
    {
        const auto opened = Ledger::open(TestServer::instance().address(database, user));
        EXPECT_EQ(opened.error, QString());
        return opened.value;
    }
    QString codeOf(const char* user, const QString& script) const
    {
        return TestServer::instance().codeOf(database, QString::fromLatin1(user), script);
    }
    /// A line of its own for each, so that a run lists what was tried: the code of the refusal, and who did
    /// what.
    void expectRefused(const char* what, const char* user, const QString& script, const char* code) const
    {
        const QString refused = codeOf(user, script);
        EXPECT_EQ(refused, QLatin1String(code)) << what;
        std::printf("%s  %s\n", refused.isEmpty() ? "DONE " : qPrintable(refused), what);
    }
    CreationTerms terms() const
    {
        CreationTerms terms;
        terms.limits = limits;
        return terms;
    }
    static BatchDraft worth(const Decimal& amount)
    {
        BatchDraft draft = sampleDraft(1);
        draft.instances[0].legs[0].amount = amount;
        return draft;
    }

    const QString database;
    Limits limits;
};

} // namespace

TEST(Roles, AreHeldByTheDatabaseAgainstPlainSql)
{
    const Floor floor;
    for (const Attempt& attempt : Attempts) {
        floor.expectRefused(attempt.what, attempt.user, QLatin1String(attempt.script), attempt.code);
    }
    const auto auditor = floor.as("otto"_s);
    EXPECT_FALSE(auditor->verifyAudit().value.broken.has_value());
    EXPECT_EQ(auditor->verifyAudit().value.entries, 4);
    EXPECT_EQ(auditor->verify(), QString());
    EXPECT_EQ(auditor->batch(1).value.state, BatchState::Created);
    EXPECT_EQ(auditor->batch(2).value.state, BatchState::Waiting);
}

TEST(Roles, LetEachDoItsPart)
{
    const Floor floor;
    EXPECT_EQ(floor.as("bert"_s)->approve(2, floor.limits).error, QString());
    EXPECT_NE(floor.as("chef"_s)->approve(3, floor.limits).error, QString());
    EXPECT_EQ(floor.as("bert"_s)->refuse(3, "太大"_s).error, QString());
    EXPECT_NE(floor.as("anna"_s)->resume("9999"_s, "恢复"_s).error, QString());
    EXPECT_EQ(floor.as("rosa"_s)->resume("9999"_s, "恢复"_s).error, QString());
    EXPECT_EQ(floor.as("anna"_s)->start({{{1, 1}}, std::nullopt}).error, QString());
    EXPECT_EQ(floor.as("anna"_s)->undo(2).value.withdrawn.size(), 1);
    const auto gateway = Outbox::claim(floor.as("gate"_s), {"S"_s, {"1001"_s}, "h"_s, 1, "connected"_s, {}});
    EXPECT_EQ(gateway.error, QString());
    EXPECT_NE(floor.as("otto"_s)->halt("1001"_s, "不可"_s).error, QString());
    EXPECT_EQ(floor.as("otto"_s)->verify(), QString());
    EXPECT_FALSE(floor.as("otto"_s)->verifyAudit().value.broken.has_value());
}

TEST(Roles, LetATraderAloneReplaceABatch)
{
    const Floor floor;
    CreationTerms terms = floor.terms();
    terms.replaces = 1;
    for (const QString& other : {"bert"_s, "rosa"_s, "otto"_s, "gate"_s}) {
        EXPECT_FALSE(floor.as(other)->createBatch(Floor::worth(50), terms).ok()) << other.toStdString();
        EXPECT_EQ(floor.as("otto"_s)->batch(1).value.state, BatchState::Created) << other.toStdString();
    }
    const Outcome<Batch> created = floor.as("anna"_s)->createBatch(Floor::worth(50), terms);
    EXPECT_EQ(created.error, QString());
    EXPECT_EQ(floor.as("otto"_s)->batch(1).value.state, BatchState::Withdrawn);
    EXPECT_EQ(floor.as("otto"_s)->verify(), QString());
    EXPECT_FALSE(floor.as("otto"_s)->verifyAudit().value.broken.has_value());
}

TEST(ATradersOwnProgram, CreatesWhatItMayAndNothingElse)
{
    const Floor floor;
    EXPECT_EQ(floor.codeOf("anna", creation("created", "100", "1000")), QString())
        << "a batch like any other";
    EXPECT_EQ(floor.as("otto"_s)->verify(), QString());
    EXPECT_EQ(floor.codeOf("rosa", "INSERT INTO ledger_limit (max_row_quantity, max_gross_buy, max_day_buy, "
                                   "approval_amount) VALUES (500, 15000, 20000, 12000)"_s),
              QString());
    EXPECT_EQ(floor.codeOf("rosa", "INSERT INTO ledger_price VALUES ('600000.SH', 10)"_s), QString());
    const QString ordinary = creation("created", "100", "1000");
    const QString withoutEntry = ordinary.section("CREATE FUNCTION"_s, 0, 0) + "COMMIT"_s;
    const QString otherHash = QString(ordinary).replace("'own', 'create'"_s, "'own', 'creat'"_s);
    const struct {
        const char* what;
        QString script;
        const char* code;
        const char* user = "anna";
    } attempts[] = {
        {"a row's quantity above its ceiling", creation("created", "501", "5010"), "AL003"},
        {"a batch above its ceiling", creation("created", "100", "15001"), "AL003"},
        {"a day above its ceiling, with what stood before", creation("created", "100", "10000"), "AL003"},
        {"an amount worth less than half of its price", creation("created", "100", "499"), "AL003"},
        {"a large batch without a second person", creation("created", "100", "12000"), "AL005"},
        {"a batch that waits for nobody", creation("waiting", "100", "12000"), "AL005"},
        {"a batch of another day", creation("created", "100", "1000", {}, "'2020-01-01'"), "AL008"},
        {"a batch that loses a leg", creation("created", "100", "1000", "DELETE FROM instance_leg;"_s),
         "42501"},
        {"a batch that begins withdrawn", creation("withdrawn", "100", "1000"), "AL002"},
        {"a batch of somebody who is no trader", ordinary, "42501", "rosa"},
        {"a batch with a hash that does not follow", otherHash, "AL007"},
        {"a batch without an entry", withoutEntry, "AL007"},
    };
    for (const auto& attempt : attempts) {
        floor.expectRefused(attempt.what, attempt.user, attempt.script, attempt.code);
    }
    EXPECT_EQ(floor.as("anna"_s)->halt("1001"_s, "行情异常"_s).error, QString());
    floor.expectRefused("a batch of an account that is halted", "anna", ordinary, "AL004");
    EXPECT_EQ(floor.as("otto"_s)->verify(), QString());
    EXPECT_FALSE(floor.as("otto"_s)->verifyAudit().value.broken.has_value());
}
