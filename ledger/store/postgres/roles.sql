-- Roles and what each may do at all; rules.sql says under which conditions. A person's login is a member of
-- one or more of them: CREATE ROLE anna LOGIN IN ROLE algodesk_trader.

DO $$
DECLARE
    name text;
BEGIN
    FOREACH name IN ARRAY ARRAY['trader', 'approver', 'risk', 'auditor', 'gateway'] LOOP
        IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = 'algodesk_' || name) THEN
            BEGIN
                EXECUTE format('CREATE ROLE %I NOLOGIN', 'algodesk_' || name);
            EXCEPTION WHEN duplicate_object OR unique_violation THEN
                NULL; -- made for another ledger of this server at the same moment
            END;
        END IF;
    END LOOP;
END $$;

REVOKE ALL ON SCHEMA public FROM PUBLIC;
GRANT USAGE ON SCHEMA public TO algodesk_trader, algodesk_approver, algodesk_risk, algodesk_auditor, algodesk_gateway;
REVOKE ALL ON ALL TABLES IN SCHEMA public
    FROM PUBLIC, algodesk_trader, algodesk_approver, algodesk_risk, algodesk_auditor, algodesk_gateway;
REVOKE ALL ON ALL FUNCTIONS IN SCHEMA public FROM PUBLIC;
GRANT SELECT ON ALL TABLES IN SCHEMA public
    TO algodesk_trader, algodesk_approver, algodesk_risk, algodesk_auditor, algodesk_gateway;

-- Whoever changes anything takes numbers and enters it.
GRANT UPDATE (value) ON ledger_number TO algodesk_trader, algodesk_approver, algodesk_risk, algodesk_gateway;
GRANT INSERT ON audit_entry TO algodesk_trader, algodesk_approver, algodesk_risk, algodesk_gateway;
GRANT UPDATE (state, changed_at, taken_back, cl_ord_id, cancels, cancel_due, filled, average, reason)
    ON instance TO algodesk_trader, algodesk_approver, algodesk_risk, algodesk_gateway;
GRANT UPDATE (filled, average) ON instance_leg
    TO algodesk_trader, algodesk_approver, algodesk_risk, algodesk_gateway;

GRANT INSERT ON batch, instance, instance_leg, batch_table, approval TO algodesk_trader;
GRANT UPDATE (state) ON batch TO algodesk_trader, algodesk_approver;
GRANT UPDATE (decided_by, decided_at, reason) ON approval TO algodesk_approver;
GRANT INSERT ON halt TO algodesk_trader, algodesk_approver, algodesk_risk, algodesk_gateway;
GRANT DELETE ON halt TO algodesk_risk;
GRANT INSERT, UPDATE, DELETE ON ledger_limit, ledger_price TO algodesk_risk;
GRANT INSERT, UPDATE, DELETE ON gateway TO algodesk_gateway;
GRANT INSERT ON execution, stray_report TO algodesk_gateway;

-- Rows: everyone halts in his own name; nobody decides about what he asked for himself.
ALTER TABLE halt ENABLE ROW LEVEL SECURITY;
DROP POLICY IF EXISTS seen ON halt;
CREATE POLICY seen ON halt FOR SELECT USING (true);
DROP POLICY IF EXISTS own_name ON halt;
CREATE POLICY own_name ON halt FOR INSERT WITH CHECK (halted_by = session_user);
DROP POLICY IF EXISTS lifted ON halt;
CREATE POLICY lifted ON halt FOR DELETE TO algodesk_risk USING (true);

ALTER TABLE approval ENABLE ROW LEVEL SECURITY;
DROP POLICY IF EXISTS seen ON approval;
CREATE POLICY seen ON approval FOR SELECT USING (true);
DROP POLICY IF EXISTS own_name ON approval;
CREATE POLICY own_name ON approval FOR INSERT WITH CHECK (asked_by = session_user);
DROP POLICY IF EXISTS of_others ON approval;
CREATE POLICY of_others ON approval FOR UPDATE TO algodesk_approver
    USING (asked_by <> session_user AND decided_by = '') WITH CHECK (decided_by = session_user);
