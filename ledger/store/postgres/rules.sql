-- What holds in the database itself, whatever program is connected: who may do what, and that history stays.
-- Run again by every migration. The functions run as the owner of the tables; who is asking is session_user.
--
-- Refusals have codes of their own: AL001 history, AL002 not for this role, AL003 a ceiling, AL004 halted,
-- AL005 a second person is needed, AL006 not a whole batch, AL007 the audit trail, AL008 the clock.

-- Limits and prices that risk sets. An empty value is no ceiling; '*' stands for all; the strictest row holds, but that a
-- row that replaces the general one ('*', '*') takes what it is for out of that.
CREATE TABLE IF NOT EXISTS ledger_limit (
    account TEXT NOT NULL DEFAULT '*', strategy TEXT NOT NULL DEFAULT '*',
    max_row_quantity NUMERIC, max_row_amount NUMERIC, max_security_amount NUMERIC,
    max_gross_buy NUMERIC, max_gross_sell NUMERIC, max_day_buy NUMERIC, max_day_sell NUMERIC,
    max_day_instances BIGINT, max_batch_rows BIGINT, approval_amount NUMERIC,
    PRIMARY KEY (account, strategy));
ALTER TABLE ledger_limit ADD COLUMN IF NOT EXISTS replaces_general BOOLEAN NOT NULL DEFAULT false;

-- CNY of one unit, from the day before. An amount below half of quantity times price is not believed.
CREATE TABLE IF NOT EXISTS ledger_price (symbol TEXT NOT NULL PRIMARY KEY, price NUMERIC NOT NULL);

-- How far created_at may be from the server's clock, in milliseconds.
INSERT INTO ledger_number (name, value) VALUES ('clock_tolerance', 600000), ('last_settled', 0)
    ON CONFLICT (name) DO NOTHING;

CREATE OR REPLACE FUNCTION ledger_refuse(code text, what text) RETURNS void LANGUAGE plpgsql AS $$
BEGIN
    RAISE EXCEPTION USING ERRCODE = code, MESSAGE = what;
END $$;

CREATE OR REPLACE FUNCTION ledger_is(role_name text) RETURNS boolean LANGUAGE sql STABLE AS $$
    SELECT pg_has_role(session_user, 'algodesk_' || role_name, 'member')
$$;

CREATE OR REPLACE FUNCTION ledger_is_owner() RETURNS boolean LANGUAGE sql STABLE AS $$
    SELECT pg_has_role(session_user, relowner, 'member') FROM pg_class WHERE oid = 'ledger_number'::regclass
$$;

-- Whether a number was taken by this very transaction, which holds the row until it ends.
CREATE OR REPLACE FUNCTION ledger_is_new(counter text, number bigint) RETURNS boolean LANGUAGE sql VOLATILE AS $$
    SELECT EXISTS (SELECT 1 FROM ledger_number n
                   WHERE n.name = counter AND n.value = number AND n.xmin = pg_current_xact_id()::xid)
$$;

CREATE OR REPLACE FUNCTION ledger_now() RETURNS bigint LANGUAGE sql VOLATILE AS $$
    SELECT (extract(epoch FROM clock_timestamp()) * 1000)::bigint
$$;

CREATE OR REPLACE FUNCTION ledger_day(at bigint) RETURNS text LANGUAGE sql IMMUTABLE AS $$
    SELECT to_char(to_timestamp(at / 1000) AT TIME ZONE 'UTC' + interval '8 hours', 'YYYY-MM-DD')
$$;

CREATE OR REPLACE FUNCTION ledger_check_clock(at bigint) RETURNS void LANGUAGE plpgsql AS $$
BEGIN
    IF abs(at - ledger_now()) > (SELECT value FROM ledger_number WHERE name = 'clock_tolerance') THEN
        PERFORM ledger_refuse('AL008', 'the clock of this program is not the server''s');
    END IF;
END $$;

CREATE OR REPLACE FUNCTION ledger_buys(direction text) RETURNS boolean LANGUAGE sql IMMUTABLE AS $$
    SELECT direction NOT LIKE 'Sell%'
$$;

CREATE OR REPLACE FUNCTION ledger_sells(direction text) RETURNS boolean LANGUAGE sql IMMUTABLE AS $$
    SELECT direction NOT LIKE 'Buy%' OR direction = 'Buy/Sell'
$$;

-- History stays -----------------------------------------------------------------------------------------------

CREATE OR REPLACE FUNCTION ledger_never() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    PERFORM ledger_refuse('AL001', TG_TABLE_NAME || ' is never changed by ' || TG_OP);
    RETURN NULL;
END $$;

DO $$
DECLARE
    name text;
BEGIN
    FOREACH name IN ARRAY ARRAY['batch', 'instance', 'instance_leg', 'batch_table', 'account_day', 'approval',
                                'execution', 'stray_report', 'audit_entry', 'ledger_number'] LOOP
        EXECUTE format('DROP TRIGGER IF EXISTS a_never_deleted ON %I', name);
        EXECUTE format('CREATE TRIGGER a_never_deleted BEFORE DELETE ON %I '
                       'FOR EACH ROW EXECUTE FUNCTION ledger_never()', name);
        EXECUTE format('DROP TRIGGER IF EXISTS a_never_emptied ON %I', name);
        EXECUTE format('CREATE TRIGGER a_never_emptied BEFORE TRUNCATE ON %I '
                       'FOR EACH STATEMENT EXECUTE FUNCTION ledger_never()', name);
    END LOOP;
    FOREACH name IN ARRAY ARRAY['batch_table', 'execution', 'stray_report', 'audit_entry'] LOOP
        EXECUTE format('DROP TRIGGER IF EXISTS a_never_updated ON %I', name);
        EXECUTE format('CREATE TRIGGER a_never_updated BEFORE UPDATE ON %I '
                       'FOR EACH ROW EXECUTE FUNCTION ledger_never()', name);
    END LOOP;
END $$;

-- Numbers -----------------------------------------------------------------------------------------------------

CREATE OR REPLACE FUNCTION ledger_number_moves() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF NEW.name IN ('schema_version', 'clock_tolerance') AND ledger_is_owner() THEN
        RETURN NEW;
    END IF;
    IF NEW.name <> OLD.name OR NEW.value <> OLD.value + 1
       OR NEW.name NOT IN ('last_batch', 'last_audit', 'last_stray', 'last_settled') THEN
        PERFORM ledger_refuse('AL001', 'a number of the ledger only moves by one');
    END IF;
    RETURN NEW;
END $$;

CREATE OR REPLACE FUNCTION ledger_number_used() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
DECLARE
    used boolean := true;
BEGIN
    IF NEW.name = 'last_batch' THEN
        used := EXISTS (SELECT 1 FROM batch WHERE number = NEW.value);
    ELSIF NEW.name = 'last_audit' THEN
        used := EXISTS (SELECT 1 FROM audit_entry WHERE number = NEW.value);
    ELSIF NEW.name = 'last_stray' THEN
        used := EXISTS (SELECT 1 FROM stray_report WHERE number = NEW.value);
    END IF;
    IF NOT used THEN
        PERFORM ledger_refuse('AL006', 'a number was taken and not used');
    END IF;
    RETURN NULL;
END $$;

DROP TRIGGER IF EXISTS b_moves ON ledger_number;
CREATE TRIGGER b_moves BEFORE UPDATE ON ledger_number FOR EACH ROW EXECUTE FUNCTION ledger_number_moves();
DROP TRIGGER IF EXISTS c_used ON ledger_number;
CREATE CONSTRAINT TRIGGER c_used AFTER UPDATE ON ledger_number DEFERRABLE INITIALLY DEFERRED
    FOR EACH ROW EXECUTE FUNCTION ledger_number_used();

-- The audit trail ---------------------------------------------------------------------------------------------

CREATE OR REPLACE FUNCTION ledger_part(part text) RETURNS text LANGUAGE sql IMMUTABLE AS $$
    SELECT octet_length(convert_to(part, 'UTF8'))::text || ':' || part
$$;

CREATE OR REPLACE FUNCTION ledger_hash(before text, e audit_entry) RETURNS text LANGUAGE sql IMMUTABLE AS $$
    SELECT encode(sha256(convert_to(
        ledger_part(before) || ledger_part(e.number::text) || ledger_part(e.entered_at::text) ||
        ledger_part(e.entered_by) || ledger_part(e.program) || ledger_part(e.what) ||
        ledger_part(e.subject) || ledger_part(e.detail), 'UTF8')), 'hex')
$$;

CREATE OR REPLACE FUNCTION ledger_audit_entered() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
DECLARE
    before text;
BEGIN
    IF NOT ledger_is_new('last_audit', NEW.number) OR NEW.entered_by <> session_user THEN
        PERFORM ledger_refuse('AL007', 'an audit entry is the next one, and its author''s own');
    END IF;
    PERFORM ledger_check_clock(NEW.entered_at);
    IF NEW.number = 1 THEN
        before := encode(sha256('algodesk audit 1'::bytea), 'hex');
    ELSE
        SELECT hash INTO before FROM audit_entry WHERE number = NEW.number - 1;
    END IF;
    IF before IS NULL OR NEW.hash <> ledger_hash(before, NEW) THEN
        PERFORM ledger_refuse('AL007', 'the hash of an audit entry does not follow from the one before');
    END IF;
    RETURN NEW;
END $$;

-- At the end of a transaction: whatever it changed, it has entered.
CREATE OR REPLACE FUNCTION ledger_is_audited() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF NOT EXISTS (SELECT 1 FROM audit_entry e JOIN ledger_number n ON n.value = e.number
                   WHERE n.name = 'last_audit' AND e.xmin = pg_current_xact_id()::xid) THEN
        PERFORM ledger_refuse('AL007', TG_TABLE_NAME || ' was changed without an audit entry');
    END IF;
    RETURN NULL;
END $$;

DROP TRIGGER IF EXISTS b_entered ON audit_entry;
CREATE TRIGGER b_entered BEFORE INSERT ON audit_entry FOR EACH ROW EXECUTE FUNCTION ledger_audit_entered();

DO $$
DECLARE
    part text[];
BEGIN
    FOREACH part SLICE 1 IN ARRAY ARRAY[
        ['batch', 'INSERT OR UPDATE'], ['instance', 'UPDATE'], ['halt', 'INSERT OR UPDATE OR DELETE'],
        ['approval', 'INSERT OR UPDATE'], ['gateway', 'INSERT OR UPDATE OR DELETE']] LOOP
        EXECUTE format('DROP TRIGGER IF EXISTS z_audited ON %I', part[1]);
        EXECUTE format('CREATE CONSTRAINT TRIGGER z_audited AFTER %s ON %I DEFERRABLE INITIALLY DEFERRED '
                       'FOR EACH ROW EXECUTE FUNCTION ledger_is_audited()', part[2], part[1]);
    END LOOP;
END $$;

-- Creating ----------------------------------------------------------------------------------------------------

CREATE OR REPLACE FUNCTION ledger_batch_begun() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF NOT ledger_is_new('last_batch', NEW.number)
       OR EXISTS (SELECT 1 FROM batch WHERE number = NEW.number) THEN
        PERFORM ledger_refuse('AL006', 'the number of a batch is the next one');
    END IF;
    IF NEW.created_by <> session_user OR NEW.state NOT IN ('created', 'waiting') THEN
        PERFORM ledger_refuse('AL002', 'a batch is created by its author');
    END IF;
    PERFORM ledger_check_clock(NEW.created_at);
    IF NEW.day <> ledger_day(NEW.created_at) THEN
        PERFORM ledger_refuse('AL008', 'the day of a batch is that of its creation');
    END IF;
    RETURN NEW;
END $$;

-- Rows, legs, table and request for approval come with their batch, in its transaction, and not later. Asked once
-- for all rows of a statement, since a batch has a thousand.
CREATE OR REPLACE FUNCTION ledger_comes_with_batch() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF EXISTS (SELECT 1 FROM (SELECT DISTINCT batch_number FROM added) a
               WHERE NOT ledger_is_new('last_batch', a.batch_number)) THEN
        PERFORM ledger_refuse('AL001', TG_TABLE_NAME || ' comes with its batch');
    END IF;
    RETURN NULL;
END $$;

CREATE OR REPLACE FUNCTION ledger_approval_asked() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF NEW.asked_by <> session_user OR NEW.decided_by <> '' THEN
        PERFORM ledger_refuse('AL005', 'approval is asked for by the author, and decided by another person');
    END IF;
    RETURN NEW;
END $$;

-- Strictest ceilings of an account and a strategy.
CREATE OR REPLACE FUNCTION ledger_limits(of_account text, of_strategy text) RETURNS ledger_limit
    LANGUAGE sql STABLE AS $$
    SELECT of_account, of_strategy, min(max_row_quantity), min(max_row_amount), min(max_security_amount),
           min(max_gross_buy), min(max_gross_sell), min(max_day_buy), min(max_day_sell),
           min(max_day_instances), min(max_batch_rows), min(approval_amount), false
    FROM ledger_limit WHERE account IN (of_account, '*') AND strategy IN (of_strategy, '*')
      AND NOT (account = '*' AND strategy = '*' AND EXISTS (
          SELECT 1 FROM ledger_limit o WHERE o.replaces_general AND (o.account <> '*' OR o.strategy <> '*')
          AND o.account IN (of_account, '*') AND o.strategy IN (of_strategy, '*')))
$$;

CREATE OR REPLACE FUNCTION ledger_check_rows(b batch, most ledger_limit) RETURNS void LANGUAGE plpgsql AS $$
DECLARE
    fault text;
BEGIN
    SELECT 'row ' || l.row_no INTO fault FROM instance_leg l LEFT JOIN ledger_price p ON p.symbol = l.symbol
    WHERE l.batch_number = b.number AND l.account = b.account
      AND (l.quantity < 0 OR l.amount < 0 OR l.quantity > most.max_row_quantity
           OR l.amount < l.quantity * p.price / 2) LIMIT 1;
    IF fault IS NULL AND most.max_row_amount IS NOT NULL THEN
        SELECT 'row ' || row_no INTO fault FROM instance_leg WHERE batch_number = b.number
        AND account = b.account GROUP BY row_no HAVING sum(amount) > most.max_row_amount LIMIT 1;
    END IF;
    IF fault IS NULL AND most.max_security_amount IS NOT NULL THEN
        SELECT symbol INTO fault FROM instance_leg WHERE batch_number = b.number AND account = b.account
        GROUP BY symbol HAVING sum(CASE WHEN ledger_buys(direction) THEN amount END) > most.max_security_amount
                            OR sum(CASE WHEN ledger_sells(direction) THEN amount END) > most.max_security_amount
        LIMIT 1;
    END IF;
    IF fault IS NOT NULL THEN
        PERFORM ledger_refuse('AL003', 'above a ceiling, or not worth what it says: ' || fault);
    END IF;
END $$;

-- The whole batch, at the end of the transaction that creates it. The day's sums are kept here alone.
CREATE OR REPLACE FUNCTION ledger_batch_made() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
DECLARE
    most ledger_limit;
    sums record;
    today account_day;
BEGIN
    IF EXISTS (SELECT 1 FROM halt WHERE account IN (NEW.account, '*')) THEN
        PERFORM ledger_refuse('AL004', 'the account is halted');
    END IF;
    SELECT coalesce(sum(l.amount) FILTER (WHERE ledger_buys(l.direction)), 0) AS buy,
           coalesce(sum(l.amount) FILTER (WHERE ledger_sells(l.direction)), 0) AS sell,
           count(DISTINCT l.row_no) AS with_legs
        INTO sums FROM instance_leg l WHERE l.batch_number = NEW.number AND l.account = NEW.account;
    IF (SELECT count(*) FROM instance i WHERE i.batch_number = NEW.number AND i.account = NEW.account
        AND i.row_no BETWEEN 1 AND NEW.row_count AND i.day = NEW.day) <> NEW.row_count
       OR sums.with_legs <> NEW.row_count
       OR (SELECT count(*) FROM instance i WHERE i.batch_number = NEW.number) <> NEW.row_count
       OR NOT EXISTS (SELECT 1 FROM batch_table t WHERE t.batch_number = NEW.number) THEN
        PERFORM ledger_refuse('AL006', 'a batch is created whole or not at all');
    END IF;
    most := ledger_limits(NEW.account, NEW.strategy);
    PERFORM ledger_check_rows(NEW, most);
    IF sums.buy > most.max_gross_buy OR sums.sell > most.max_gross_sell
       OR NEW.row_count > most.max_batch_rows THEN
        PERFORM ledger_refuse('AL003', 'the batch is above a ceiling');
    END IF;
    IF NEW.state = 'waiting' THEN
        IF NOT EXISTS (SELECT 1 FROM approval a WHERE a.batch_number = NEW.number AND a.account = NEW.account)
           OR EXISTS (SELECT 1 FROM instance i WHERE i.batch_number = NEW.number AND i.state <> 'created') THEN
            PERFORM ledger_refuse('AL005', 'a batch that waits starts nothing');
        END IF;
    ELSIF sums.buy + sums.sell >= most.approval_amount THEN
        PERFORM ledger_refuse('AL005', 'the batch is to be approved by a second person');
    END IF;
    INSERT INTO account_day AS d (account, day, buy, sell, batches, instances)
        VALUES (NEW.account, NEW.day, sums.buy, sums.sell, 1, NEW.row_count)
        ON CONFLICT (account, day) DO UPDATE SET buy = d.buy + excluded.buy, sell = d.sell + excluded.sell,
            batches = d.batches + 1, instances = d.instances + excluded.instances
        RETURNING * INTO today;
    IF (sums.buy <> 0 AND today.buy > most.max_day_buy) OR (sums.sell <> 0 AND today.sell > most.max_day_sell)
       OR today.instances > most.max_day_instances THEN
        PERFORM ledger_refuse('AL003', 'the account''s day is above a ceiling');
    END IF;
    RETURN NULL;
END $$;

CREATE OR REPLACE FUNCTION ledger_instance_begun() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF EXISTS (SELECT 1 FROM added a WHERE a.state NOT IN ('created', 'queued', 'running') OR a.cl_ord_id <> ''
               OR a.filled <> 0 OR a.average <> 0 OR a.cancels <> 0 OR a.cancel_due <> 0 OR a.taken_back <> 0) THEN
        PERFORM ledger_refuse('AL001', 'an instance begins with nothing done');
    END IF;
    RETURN NULL;
END $$;

DROP TRIGGER IF EXISTS b_begun ON batch;
CREATE TRIGGER b_begun BEFORE INSERT ON batch FOR EACH ROW EXECUTE FUNCTION ledger_batch_begun();
DROP TRIGGER IF EXISTS c_made ON batch;
CREATE CONSTRAINT TRIGGER c_made AFTER INSERT ON batch DEFERRABLE INITIALLY DEFERRED
    FOR EACH ROW EXECUTE FUNCTION ledger_batch_made();
DROP TRIGGER IF EXISTS b_begun ON instance;
CREATE TRIGGER b_begun AFTER INSERT ON instance REFERENCING NEW TABLE AS added
    FOR EACH STATEMENT EXECUTE FUNCTION ledger_instance_begun();
DROP TRIGGER IF EXISTS b_asked ON approval;
CREATE TRIGGER b_asked BEFORE INSERT ON approval FOR EACH ROW EXECUTE FUNCTION ledger_approval_asked();

DO $$
DECLARE
    name text;
BEGIN
    FOREACH name IN ARRAY ARRAY['instance', 'instance_leg', 'batch_table', 'approval'] LOOP
        EXECUTE format('DROP TRIGGER IF EXISTS a_with_batch ON %I', name);
        EXECUTE format('CREATE TRIGGER a_with_batch AFTER INSERT ON %I REFERENCING NEW TABLE AS added '
                       'FOR EACH STATEMENT EXECUTE FUNCTION ledger_comes_with_batch()', name);
    END LOOP;
END $$;

-- What becomes of batches and instances -----------------------------------------------------------------------

-- Whether the session's user has decided about a batch of another person's.
CREATE OR REPLACE FUNCTION ledger_has_decided(of_batch bigint) RETURNS boolean LANGUAGE sql VOLATILE AS $$
    SELECT ledger_is('approver') AND EXISTS (
        SELECT 1 FROM approval WHERE batch_number = of_batch AND decided_by = session_user
        AND asked_by <> session_user)
$$;

CREATE OR REPLACE FUNCTION ledger_check_approval(b batch) RETURNS void LANGUAGE plpgsql AS $$
BEGIN
    IF EXISTS (SELECT 1 FROM halt WHERE account IN (b.account, '*')) THEN
        PERFORM ledger_refuse('AL004', 'the account is halted');
    END IF;
    IF b.day <> ledger_day(ledger_now())
       AND (SELECT value FROM ledger_number WHERE name = 'clock_tolerance') < 86400000 THEN
        PERFORM ledger_refuse('AL005', 'the day of the batch has ended');
    END IF;
END $$;

CREATE OR REPLACE FUNCTION ledger_batch_moves() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
DECLARE
    ended CONSTANT text[] := ARRAY['withdrawn', 'refused', 'lapsed'];
BEGIN
    IF (to_jsonb(NEW) - 'state') <> (to_jsonb(OLD) - 'state') THEN
        PERFORM ledger_refuse('AL001', 'of a batch nothing but its state changes');
    END IF;
    IF NEW.state = OLD.state THEN
        RETURN NEW;
    ELSIF OLD.state = 'waiting' AND NEW.state IN ('created', 'refused', 'lapsed') THEN
        IF NOT ledger_has_decided(NEW.number) THEN
            PERFORM ledger_refuse('AL005', 'a batch that waits is decided about by a second person');
        END IF;
        IF NEW.state = 'created' THEN
            PERFORM ledger_check_approval(NEW);
        END IF;
    ELSIF NOT (ledger_is('trader') AND OLD.state IN ('created', 'waiting', 'partly_reversed')
               AND NEW.state IN ('withdrawn', 'partly_reversed')) THEN
        PERFORM ledger_refuse('AL002', 'a batch does not go from ' || OLD.state || ' to ' || NEW.state);
    END IF;
    IF NEW.state = ANY (ended) AND NOT OLD.state = ANY (ended) THEN
        UPDATE account_day SET batches = batches - 1 WHERE account = NEW.account AND day = NEW.day;
    END IF;
    RETURN NEW;
END $$;

-- At the end of a transaction: what was withdrawn is withdrawn throughout, or it would hide its orders.
CREATE OR REPLACE FUNCTION ledger_batch_ended() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF NEW.state IN ('withdrawn', 'refused', 'lapsed') AND EXISTS (
        SELECT 1 FROM instance WHERE batch_number = NEW.number AND account = NEW.account
        AND state NOT IN ('withdrawn', 'rejected')) THEN
        PERFORM ledger_refuse('AL001', 'of a batch that ended nothing goes on');
    END IF;
    RETURN NULL;
END $$;

-- What each role may make of an instance.
CREATE OR REPLACE FUNCTION ledger_may_move(was instance, now instance) RETURNS boolean LANGUAGE plpgsql VOLATILE AS $$
DECLARE
    of_batch text;
BEGIN
    IF was.state = 'created' AND now.state IN ('queued', 'running') THEN
        SELECT state INTO of_batch FROM batch WHERE number = now.batch_number AND account = now.account;
        RETURN of_batch IN ('created', 'partly_reversed')
            AND NOT EXISTS (SELECT 1 FROM halt WHERE account IN (now.account, '*'))
            AND (ledger_is('trader') OR ledger_has_decided(now.batch_number));
    END IF;
    IF was.state IN ('created', 'queued') AND now.state = 'withdrawn' THEN
        RETURN ledger_is('trader') OR ledger_has_decided(now.batch_number)
            OR (was.state = 'queued' AND ledger_is('gateway'));
    END IF;
    IF was.state = now.state OR (was.state = 'running' AND now.state = 'stopping') THEN
        RETURN was.state <> 'created' OR now.taken_back = was.taken_back;
    END IF;
    IF ledger_is('gateway') THEN
        RETURN was.state <> 'created';
    END IF;
    RETURN ledger_is('trader') AND (
        (was.state = 'unknown' AND now.state IN ('running', 'stopped', 'finished', 'rejected', 'queued'))
        OR (was.state = 'running' AND was.cl_ord_id = '' AND now.state IN ('stopped', 'finished')));
END $$;

CREATE OR REPLACE FUNCTION ledger_instance_moves() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF (NEW.batch_number, NEW.row_no, NEW.account, NEW.strategy, NEW.parameters, NEW.row_key, NEW.starts_now,
        NEW.day) IS DISTINCT FROM
       (OLD.batch_number, OLD.row_no, OLD.account, OLD.strategy, OLD.parameters, OLD.row_key, OLD.starts_now,
        OLD.day) THEN
        PERFORM ledger_refuse('AL001', 'what was ordered is never changed');
    END IF;
    IF (NEW.cl_ord_id, NEW.cancels, NEW.filled, NEW.average) IS DISTINCT FROM
       (OLD.cl_ord_id, OLD.cancels, OLD.filled, OLD.average) AND NOT ledger_is('gateway') THEN
        PERFORM ledger_refuse('AL002', 'what the counterparty did is told by the gateway');
    END IF;
    IF NOT ledger_may_move(OLD, NEW) THEN
        PERFORM ledger_refuse('AL002', 'an instance does not go from ' || OLD.state || ' to ' || NEW.state);
    END IF;
    RETURN NEW;
END $$;

-- What was withdrawn is taken out of its day, once for all rows of a statement.
CREATE OR REPLACE FUNCTION ledger_instances_moved() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    UPDATE account_day d
        SET instances = d.instances - g.instances, buy = d.buy - g.buy, sell = d.sell - g.sell
        FROM (SELECT n.account, n.day, count(DISTINCT (n.batch_number, n.row_no)) AS instances,
                     coalesce(sum(l.amount) FILTER (WHERE ledger_buys(l.direction)), 0) AS buy,
                     coalesce(sum(l.amount) FILTER (WHERE ledger_sells(l.direction)), 0) AS sell
              FROM moved n JOIN was o USING (batch_number, row_no, account)
                   LEFT JOIN instance_leg l USING (batch_number, row_no, account)
              WHERE n.state = 'withdrawn' AND o.state <> 'withdrawn' GROUP BY n.account, n.day) g
        WHERE d.account = g.account AND d.day = g.day;
    RETURN NULL;
END $$;

CREATE OR REPLACE FUNCTION ledger_leg_moves() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF (to_jsonb(NEW) - 'filled' - 'average') <> (to_jsonb(OLD) - 'filled' - 'average') THEN
        PERFORM ledger_refuse('AL001', 'what was ordered is never changed');
    END IF;
    IF (NEW.filled, NEW.average) IS DISTINCT FROM (OLD.filled, OLD.average) AND NOT ledger_is('gateway') THEN
        PERFORM ledger_refuse('AL002', 'what the counterparty did is told by the gateway');
    END IF;
    RETURN NEW;
END $$;

CREATE OR REPLACE FUNCTION ledger_approval_decided() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = public, pg_temp AS $$
BEGIN
    IF (to_jsonb(NEW) - 'decided_by' - 'decided_at' - 'reason') <>
       (to_jsonb(OLD) - 'decided_by' - 'decided_at' - 'reason') THEN
        PERFORM ledger_refuse('AL001', 'what is to be approved is never changed');
    END IF;
    IF OLD.decided_by <> '' OR NEW.decided_by <> session_user OR NEW.asked_by = session_user
       OR EXISTS (SELECT 1 FROM batch WHERE number = NEW.batch_number AND created_by = session_user)
       OR NOT ledger_is('approver') THEN
        PERFORM ledger_refuse('AL005', 'a batch is approved once, and by a second person');
    END IF;
    RETURN NEW;
END $$;

DROP TRIGGER IF EXISTS b_moves ON batch;
CREATE TRIGGER b_moves BEFORE UPDATE ON batch FOR EACH ROW EXECUTE FUNCTION ledger_batch_moves();
DROP TRIGGER IF EXISTS c_ended ON batch;
CREATE CONSTRAINT TRIGGER c_ended AFTER UPDATE ON batch DEFERRABLE INITIALLY DEFERRED
    FOR EACH ROW EXECUTE FUNCTION ledger_batch_ended();
DROP TRIGGER IF EXISTS b_moves ON instance;
CREATE TRIGGER b_moves BEFORE UPDATE ON instance FOR EACH ROW EXECUTE FUNCTION ledger_instance_moves();
DROP TRIGGER IF EXISTS c_moved ON instance;
CREATE TRIGGER c_moved AFTER UPDATE ON instance REFERENCING OLD TABLE AS was NEW TABLE AS moved
    FOR EACH STATEMENT EXECUTE FUNCTION ledger_instances_moved();
DROP TRIGGER IF EXISTS b_moves ON instance_leg;
CREATE TRIGGER b_moves BEFORE UPDATE ON instance_leg FOR EACH ROW EXECUTE FUNCTION ledger_leg_moves();
DROP TRIGGER IF EXISTS b_decided ON approval;
CREATE TRIGGER b_decided BEFORE UPDATE ON approval FOR EACH ROW EXECUTE FUNCTION ledger_approval_decided();
