<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>Words</name>
    <message>
        <source>应为数组</source>
        <translation>must be an array</translation>
    </message>
    <message>
        <source>应为对象</source>
        <translation>must be an object</translation>
    </message>
    <message>
        <source>应为非负整数</source>
        <translation>must be a whole number of 0 or more</translation>
    </message>
    <message>
        <source>不是界限：%1</source>
        <translation>not a bound: %1</translation>
    </message>
    <message>
        <source>缺少</source>
        <translation>missing</translation>
    </message>
    <message>
        <source>未知的类型“%1”</source>
        <translation>unknown type &quot;%1&quot;</translation>
    </message>
    <message>
        <source>没有时区“%1”</source>
        <translation>no time zone &quot;%1&quot;</translation>
    </message>
    <message>
        <source>“%1”有误</source>
        <translation>&quot;%1&quot; is wrong</translation>
    </message>
    <message>
        <source>value 与 field2 应有且只有一个</source>
        <translation>exactly one of value and field2 is needed</translation>
    </message>
    <message>
        <source>嵌套过深</source>
        <translation>nested too deep</translation>
    </message>
    <message>
        <source>最外层应为对象</source>
        <translation>the outermost value must be an object</translation>
    </message>
    <message>
        <source>整数</source>
        <translation>whole number</translation>
    </message>
    <message>
        <source>数字</source>
        <translation>number</translation>
    </message>
    <message>
        <source>、</source>
        <translation>, </translation>
    </message>
    <message>
        <source>；</source>
        <translation>; </translation>
    </message>
    <message>
        <source>_问题行.</source>
        <translation>_rejects.</translation>
    </message>
    <message>
        <source>模拟对手方在 127.0.0.1:%1，时钟加速 %2 倍；网关已登录 FIX.4.4:DESK-&gt;BROKER</source>
        <translation>A simulated counterparty listens on 127.0.0.1:%1, its clock %2 times as fast; the gateway is logged on as FIX.4.4:DESK-&gt;BROKER</translation>
    </message>
    <message>
        <source>已导入 demo.csv，批次 %1，全部启动</source>
        <translation>Imported demo.csv as batch %1, all of it started</translation>
    </message>
    <message>
        <source>无法读取“%1”：%2</source>
        <translation>Cannot read &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>导入失败：%1 %2</source>
        <translation>The import failed: %1 %2</translation>
    </message>
    <message>
        <source>无法创建文件夹“%1”</source>
        <translation>Cannot make the folder &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1 已结束：%2</source>
        <translation>%1 has ended: %2</translation>
    </message>
    <message>
        <source>网关没有登录</source>
        <translation>The gateway is not logged on</translation>
    </message>
    <message>
        <source>%1 秒  %2</source>
        <translation>%1 s  %2</translation>
    </message>
    <message>
        <source>%1成交 %2 / %3</source>
        <translation>%1filled %2 / %3</translation>
    </message>
    <message>
        <source>  %1  %2  %3  成交 %4  均价 %5  %6%7</source>
        <translation>  %1  %2  %3  filled %4  average price %5  %6%7</translation>
    </message>
    <message>
        <source>全部成交，用时 %1 秒</source>
        <translation>All filled, in %1 seconds</translation>
    </message>
    <message>
        <source>没有全部成交</source>
        <translation>Not all was filled</translation>
    </message>
    <message>
        <source>没有可用的显示环境，改以文字演示（--headless）</source>
        <translation>No display is available; told as text instead (--headless)</translation>
    </message>
    <message>
        <source>没有可用的显示环境，无法打开窗口；不需要窗口的命令见 algodesk --help</source>
        <translation>No display is available, so no window can be opened; see algodesk --help for the commands that need none</translation>
    </message>
    <message>
        <source>批次</source>
        <translation>Batch</translation>
    </message>
    <message>
        <source>状态</source>
        <translation>State</translation>
    </message>
    <message>
        <source>创建时间</source>
        <translation>Created</translation>
    </message>
    <message>
        <source>文件</source>
        <translation>File</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>算法</source>
        <translation>Strategy</translation>
    </message>
    <message>
        <source>行数</source>
        <translation>Rows</translation>
    </message>
    <message>
        <source>进度</source>
        <translation>Progress</translation>
    </message>
    <message>
        <source>预计买入</source>
        <translation>Expected buy</translation>
    </message>
    <message>
        <source>预计卖出</source>
        <translation>Expected sell</translation>
    </message>
    <message>
        <source>创建人</source>
        <translation>Created by</translation>
    </message>
    <message>
        <source>新增列</source>
        <translation>Column added</translation>
    </message>
    <message>
        <source>删除列</source>
        <translation>Column removed</translation>
    </message>
    <message>
        <source>修改</source>
        <translation>Changed</translation>
    </message>
    <message>
        <source>删除行</source>
        <translation>Row removed</translation>
    </message>
    <message>
        <source>新增行</source>
        <translation>Row added</translation>
    </message>
    <message>
        <source>变更</source>
        <translation>Changes</translation>
    </message>
    <message>
        <source>原行</source>
        <translation>Old row</translation>
    </message>
    <message>
        <source>现行</source>
        <translation>New row</translation>
    </message>
    <message>
        <source>列</source>
        <translation>Column</translation>
    </message>
    <message>
        <source>原值</source>
        <translation>Old value</translation>
    </message>
    <message>
        <source>新值</source>
        <translation>New value</translation>
    </message>
    <message>
        <source>错误</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>警告</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>提示</source>
        <translation>Notice</translation>
    </message>
    <message>
        <source>严重程度</source>
        <translation>Severity</translation>
    </message>
    <message>
        <source>说明</source>
        <translation>Explanation</translation>
    </message>
    <message>
        <source>建议</source>
        <translation>Suggestion</translation>
    </message>
    <message>
        <source>整个文件</source>
        <translation>whole file</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
    <message>
        <source>买入</source>
        <translation>Buy</translation>
    </message>
    <message>
        <source>卖出</source>
        <translation>Sell</translation>
    </message>
    <message>
        <source>买入开仓</source>
        <translation>Buy to open</translation>
    </message>
    <message>
        <source>卖出开仓</source>
        <translation>Sell to open</translation>
    </message>
    <message>
        <source>买入平仓</source>
        <translation>Buy to close</translation>
    </message>
    <message>
        <source>卖出平仓</source>
        <translation>Sell to close</translation>
    </message>
    <message>
        <source>实例</source>
        <translation>Instance</translation>
    </message>
    <message>
        <source>证券代码</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>方向</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>数量</source>
        <translation>Quantity</translation>
    </message>
    <message>
        <source>成交</source>
        <translation>Filled</translation>
    </message>
    <message>
        <source>均价</source>
        <translation>Average price</translation>
    </message>
    <message>
        <source>限价</source>
        <translation>Limit</translation>
    </message>
    <message>
        <source>金额</source>
        <translation>Amount</translation>
    </message>
    <message>
        <source>原因</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>变更时间</source>
        <translation>Changed at</translation>
    </message>
    <message>
        <source>批次 %1 全部结束：%2</source>
        <translation>Batch %1 is over: %2</translation>
    </message>
    <message>
        <source>批次 %1：%2 个实例%3</source>
        <translation>Batch %1: %2 instance(s) %3</translation>
    </message>
    <message>
        <source>证券名称</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>最新价</source>
        <translation>Last</translation>
    </message>
    <message>
        <source>涨跌</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>涨跌幅%</source>
        <translation>Change %</translation>
    </message>
    <message>
        <source>昨收价</source>
        <translation>Previous close</translation>
    </message>
    <message>
        <source>涨停价</source>
        <translation>Upper limit</translation>
    </message>
    <message>
        <source>跌停价</source>
        <translation>Lower limit</translation>
    </message>
    <message>
        <source>时间</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>会话</source>
        <translation>Session</translation>
    </message>
    <message>
        <source>消息</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>委托编号</source>
        <translation>ClOrdID</translation>
    </message>
    <message>
        <source>内容</source>
        <translation>Content</translation>
    </message>
    <message>
        <source>→ 发出</source>
        <translation>→ sent</translation>
    </message>
    <message>
        <source>← 收到</source>
        <translation>← received</translation>
    </message>
    <message>
        <source>字段</source>
        <translation>Field</translation>
    </message>
    <message>
        <source>值</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>回报编号</source>
        <translation>ExecID</translation>
    </message>
    <message>
        <source>心跳</source>
        <translation>Heartbeat</translation>
    </message>
    <message>
        <source>测试请求</source>
        <translation>Test request</translation>
    </message>
    <message>
        <source>重传请求</source>
        <translation>Resend request</translation>
    </message>
    <message>
        <source>会话拒绝</source>
        <translation>Session reject</translation>
    </message>
    <message>
        <source>序号重置</source>
        <translation>Sequence reset</translation>
    </message>
    <message>
        <source>登出</source>
        <translation>Logout</translation>
    </message>
    <message>
        <source>执行回报</source>
        <translation>Execution report</translation>
    </message>
    <message>
        <source>撤单拒绝</source>
        <translation>Cancel reject</translation>
    </message>
    <message>
        <source>登录</source>
        <translation>Logon</translation>
    </message>
    <message>
        <source>多腿委托</source>
        <translation>Multileg order</translation>
    </message>
    <message>
        <source>委托</source>
        <translation>Order</translation>
    </message>
    <message>
        <source>撤单</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>状态查询</source>
        <translation>Status request</translation>
    </message>
    <message>
        <source>业务拒绝</source>
        <translation>Business reject</translation>
    </message>
    <message>
        <source>交易日</source>
        <translation>Exchange day</translation>
    </message>
    <message>
        <source>首次时间</source>
        <translation>First at</translation>
    </message>
    <message>
        <source>末次时间</source>
        <translation>Last at</translation>
    </message>
    <message>
        <source>批次数</source>
        <translation>Batches</translation>
    </message>
    <message>
        <source>申报笔数</source>
        <translation>Orders</translation>
    </message>
    <message>
        <source>买入金额</source>
        <translation>Bought</translation>
    </message>
    <message>
        <source>卖出金额</source>
        <translation>Sold</translation>
    </message>
    <message>
        <source>每秒峰值</source>
        <translation>Peak a second</translation>
    </message>
    <message>
        <source>峰值时间</source>
        <translation>Peak at</translation>
    </message>
    <message>
        <source>每秒%1笔以上的秒数</source>
        <translation>Seconds with %1 and more</translation>
    </message>
    <message>
        <source>达到高频标准</source>
        <translation>High frequency</translation>
    </message>
    <message>
        <source>软件名称</source>
        <translation>Software</translation>
    </message>
    <message>
        <source>软件版本</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>全部</source>
        <translation>all</translation>
    </message>
    <message>
        <source>是</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>否</source>
        <translation>no</translation>
    </message>
    <message>
        <source>“%1”不是文件夹</source>
        <translation>&quot;%1&quot; is not a folder</translation>
    </message>
    <message>
        <source>“%1”已有 %2，不会覆盖</source>
        <translation>&quot;%1&quot; holds %2 already, which is not overwritten</translation>
    </message>
    <message>
        <source>无法建立文件夹“%1”</source>
        <translation>Cannot make the folder &quot;%1&quot;</translation>
    </message>
    <message>
        <source>无法读取“%1”</source>
        <translation>Cannot read &quot;%1&quot;</translation>
    </message>
    <message>
        <source>“%1”：%2</source>
        <translation>&quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>%1 等</source>
        <translation>%1 and more</translation>
    </message>
    <message>
        <source>%1（%2 处：第 %3 行）</source>
        <translation>%1 (%2 times: row %3)</translation>
    </message>
    <message>
        <source>%1（%2 处）</source>
        <translation>%1 (%2 times)</translation>
    </message>
    <message>
        <source>周末</source>
        <translation>weekend</translation>
    </message>
    <message>
        <source>action 应为 refuse、ask 或 tell：%1</source>
        <translation>action must be refuse, ask or tell: %1</translation>
    </message>
    <message>
        <source>没有规则“%1”</source>
        <translation>There is no rule &quot;%1&quot;</translation>
    </message>
    <message>
        <source>规则“%1”不能低于 %2</source>
        <translation>The rule &quot;%1&quot; cannot be lower than %2</translation>
    </message>
    <message>
        <source>%1 元</source>
        <translation>%1 CNY</translation>
    </message>
    <message>
        <source>买入 %1，卖出 %2</source>
        <translation>buy %1, sell %2</translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>同一文件</source>
        <translation>The same file</translation>
    </message>
    <message>
        <source>%1 行同样的委托</source>
        <translation>%1 equal order(s)</translation>
    </message>
    <message>
        <source>%1今天已在账户 %2 创建（批次 %3）</source>
        <translation>%1 created today in account %2 already (batch %3)</translation>
    </message>
    <message>
        <source>账户：%1</source>
        <translation>Account: %1</translation>
    </message>
    <message>
        <source>算法：%1</source>
        <translation>Strategy: %1</translation>
    </message>
    <message>
        <source>文件：%1</source>
        <translation>File: %1</translation>
    </message>
    <message>
        <source>导入 %1 行，未导入 %2 行，跳过 %3 行</source>
        <translation>%1 rows imported, %2 not imported, %3 skipped</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>第 %1 行 %2 %3：%4</source>
        <translation>Row %1 %2 %3: %4</translation>
    </message>
    <message>
        <source>当日合计（含本批）：%1，%2 个实例</source>
        <translation>Total of the day with this batch: %1, %2 instances</translation>
    </message>
    <message>
        <source>不受通用限额约束：%1</source>
        <translation>Exempt from the general limits: %1</translation>
    </message>
    <message>
        <source>已创建</source>
        <translation>Created</translation>
    </message>
    <message>
        <source>未创建</source>
        <translation>Not created</translation>
    </message>
    <message>
        <source>查看实例</source>
        <translation>Show instances</translation>
    </message>
    <message>
        <source>与当前导入比较</source>
        <translation>Compare</translation>
    </message>
    <message>
        <source>撤销批次</source>
        <translation>Undo batch</translation>
    </message>
    <message>
        <source>还没有批次</source>
        <translation>No batches yet</translation>
    </message>
    <message>
        <source>未撤销</source>
        <translation>Not undone</translation>
    </message>
    <message>
        <source>撤销批次 %1？
文件 %2
账户 %3，算法 %4，%5 行
未启动的实例将被撤回，运行中的将被停止；已完成的不能撤销。</source>
        <translation>Undo batch %1?
File %2
Account %3, strategy %4, %5 rows
Instances that are not started are withdrawn, running ones stopped; what is filled cannot be undone.</translation>
    </message>
    <message>
        <source>批次 %1：撤回 %2 个，停止 %3 个，未能撤销 %4 个</source>
        <translation>Batch %1: %2 withdrawn, %3 stopped, %4 could not be undone</translation>
    </message>
    <message>
        <source>%1

以下实例已完成，其成交不能撤销：
%2</source>
        <translation>%1

These instances are finished, and their fills cannot be undone:
%2</translation>
    </message>
    <message>
        <source>算法交易台</source>
        <translation>Algo Trading Desk</translation>
    </message>
    <message>
        <source>文件(&amp;F)</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>新建批量导入(&amp;N)</source>
        <translation>&amp;New import</translation>
    </message>
    <message>
        <source>导入算法(&amp;O)…</source>
        <translation>Imp&amp;ort…</translation>
    </message>
    <message>
        <source>确定提交(&amp;C)</source>
        <translation>&amp;Create batch</translation>
    </message>
    <message>
        <source>导出当前列表(&amp;E)…</source>
        <translation>&amp;Export this list…</translation>
    </message>
    <message>
        <source>退出(&amp;Q)</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>视图(&amp;V)</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>刷新预计金额(&amp;R)</source>
        <translation>&amp;Refresh expected amounts</translation>
    </message>
    <message>
        <source>筛选(&amp;F)</source>
        <translation>&amp;Filter</translation>
    </message>
    <message>
        <source>深色</source>
        <translation>Dark</translation>
    </message>
    <message>
        <source>浅色</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>问题(&amp;P)</source>
        <translation>&amp;Problems</translation>
    </message>
    <message>
        <source>下一个问题(&amp;N)</source>
        <translation>&amp;Next problem</translation>
    </message>
    <message>
        <source>上一个问题(&amp;P)</source>
        <translation>&amp;Previous problem</translation>
    </message>
    <message>
        <source>保存问题行(&amp;S)…</source>
        <translation>&amp;Save rejected rows…</translation>
    </message>
    <message>
        <source>帮助(&amp;H)</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>关于算法交易台(&amp;A)…</source>
        <translation>&amp;About the desk…</translation>
    </message>
    <message>
        <source>页面</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>批量导入</source>
        <translation>Batch import</translation>
    </message>
    <message>
        <source>算法实例</source>
        <translation>Instances</translation>
    </message>
    <message>
        <source>行情</source>
        <translation>Quotes</translation>
    </message>
    <message>
        <source>网关</source>
        <translation>Gateway</translation>
    </message>
    <message>
        <source>用户 %1</source>
        <translation>User %1</translation>
    </message>
    <message>
        <source>预计金额刷新于 %1</source>
        <translation>Expected amounts as of %1</translation>
    </message>
    <message>
        <source>台账暂不可用，%1 秒后重试；画面可能不是最新</source>
        <translation>The ledger is unavailable, next try in %1 s; what is shown may be old</translation>
    </message>
    <message>
        <source>台账已恢复</source>
        <translation>The ledger is back</translation>
    </message>
    <message>
        <source>请先核对批次，再提交</source>
        <translation>Look through the batch before you create it</translation>
    </message>
    <message>
        <source>%1 待发送</source>
        <translation>%1 queued</translation>
    </message>
    <message>
        <source>关于算法交易台</source>
        <translation>About the desk</translation>
    </message>
    <message>
        <source>未创建，批次保持原样</source>
        <translation>Not created; the batch stays as it is</translation>
    </message>
    <message>
        <source>批次 %1：已创建 %2 个实例</source>
        <translation>Batch %1: %2 instances created</translation>
    </message>
    <message>
        <source>先在“批量导入”中导入要比较的文件</source>
        <translation>Import the file to compare under &quot;Batch import&quot; first</translation>
    </message>
    <message>
        <source>批量导入已关闭。可在“算法实例”中查看已创建的实例。</source>
        <translation>The import is closed. &quot;Instances&quot; shows what was created.</translation>
    </message>
    <message>
        <source>新建批量导入</source>
        <translation>New import</translation>
    </message>
    <message>
        <source>批量导入已经打开</source>
        <translation>The import is open already</translation>
    </message>
    <message>
        <source>尚未导入
按“导入算法”选择文件，或把文件拖到窗口上</source>
        <translation>Nothing imported yet
Press 导入算法 to choose a file, or drop one on the window</translation>
    </message>
    <message>
        <source>参数表</source>
        <translation>Parameters</translation>
    </message>
    <message>
        <source>账户名称</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>算法类型</source>
        <translation>Strategy</translation>
    </message>
    <message>
        <source>批量导入已关闭，没有可提交的批次</source>
        <translation>The import is closed; there is no batch to create</translation>
    </message>
    <message>
        <source>“确定”不可用：请先按提示改正，或重新导入</source>
        <translation>确定 is not available: mend what was reported, or import again</translation>
    </message>
    <message>
        <source>没有变更</source>
        <translation>No changes</translation>
    </message>
    <message>
        <source>没有可比较的批次</source>
        <translation>No batch to compare with</translation>
    </message>
    <message>
        <source>逗号</source>
        <translation>comma</translation>
    </message>
    <message>
        <source>分号</source>
        <translation>semicolon</translation>
    </message>
    <message>
        <source>制表符</source>
        <translation>tab</translation>
    </message>
    <message>
        <source>%1（含表头）</source>
        <translation>%1 with the header</translation>
    </message>
    <message>
        <source>至少 %1（含表头）</source>
        <translation>at least %1 with the header</translation>
    </message>
    <message>
        <source>%1 行</source>
        <translation>%1 rows</translation>
    </message>
    <message>
        <source>格式</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>编码</source>
        <translation>Encoding</translation>
    </message>
    <message>
        <source>分隔符</source>
        <translation>Separator</translation>
    </message>
    <message>
        <source>工作表</source>
        <translation>Sheet</translation>
    </message>
    <message>
        <source>前两格为空而跳过</source>
        <translation>Skipped, first two cells empty</translation>
    </message>
    <message>
        <source>文件检查</source>
        <translation>File check</translation>
    </message>
    <message>
        <source>文件信息</source>
        <translation>About the file</translation>
    </message>
    <message>
        <source>正在计算文件指纹…</source>
        <translation>Computing the digest of the file…</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>筛选 (Ctrl+F)</source>
        <translation>Filter (Ctrl+F)</translation>
    </message>
    <message>
        <source>筛选%1</source>
        <translation>Filter %1</translation>
    </message>
    <message>
        <source>复制</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>导出</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>%1%2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>已复制 %1 行</source>
        <translation>%1 row(s) copied</translation>
    </message>
    <message>
        <source>导出%1</source>
        <translation>Export %1</translation>
    </message>
    <message>
        <source>csv 文件 (*.csv)</source>
        <translation>csv files (*.csv)</translation>
    </message>
    <message>
        <source>未导出：%1</source>
        <translation>Not exported: %1</translation>
    </message>
    <message>
        <source>列表过长，只导出了前 %1 行：%2</source>
        <translation>The list is too long; only its first %1 rows were exported: %2</translation>
    </message>
    <message>
        <source>已导出到 %1</source>
        <translation>Exported to %1</translation>
    </message>
    <message>
        <source>共 %1 行</source>
        <translation>%1 rows</translation>
    </message>
    <message>
        <source>前 %1 行</source>
        <translation>first %1 rows</translation>
    </message>
    <message>
        <source>%1 / %2 行</source>
        <translation>%1 of %2 rows</translation>
    </message>
    <message>
        <source>%1 / 前 %2 行</source>
        <translation>%1 of the first %2 rows</translation>
    </message>
    <message>
        <source>正在登录</source>
        <translation>logging on</translation>
    </message>
    <message>
        <source>已登录</source>
        <translation>logged on</translation>
    </message>
    <message>
        <source>已登出</source>
        <translation>logged out</translation>
    </message>
    <message>
        <source>已断开</source>
        <translation>disconnected</translation>
    </message>
    <message>
        <source>全部账户</source>
        <translation>all accounts</translation>
    </message>
    <message>
        <source>账户 %1</source>
        <translation>account %1</translation>
    </message>
    <message>
        <source>报文</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>还没有报文</source>
        <translation>No messages yet</translation>
    </message>
    <message>
        <source>报文字段</source>
        <translation>Fields</translation>
    </message>
    <message>
        <source>选择一条报文查看字段</source>
        <translation>Choose a message to see its fields</translation>
    </message>
    <message>
        <source>未计入的回报</source>
        <translation>Stray reports</translation>
    </message>
    <message>
        <source>没有未计入的回报</source>
        <translation>No stray reports</translation>
    </message>
    <message>
        <source>没有登记的网关：已启动的实例不会发往对手方</source>
        <translation>No gateway is registered: what is started is not sent to a counterparty</translation>
    </message>
    <message>
        <source>%1&#x3000;%2&#x3000;%3%4，自 %5&#x3000;%6</source>
        <translation>%1&#x3000;%2&#x3000;%3%4, since %5&#x3000;%6</translation>
    </message>
    <message>
        <source>（%1）</source>
        <translation> (%1)</translation>
    </message>
    <message>
        <source>最近消息 %1 %2 %3</source>
        <translation>last message %1 %2 %3</translation>
    </message>
    <message>
        <source>发出</source>
        <translation>sent</translation>
    </message>
    <message>
        <source>收到</source>
        <translation>received</translation>
    </message>
    <message>
        <source>%1：%2（%3）
</source>
        <translation>%1: %2 (%3)
</translation>
    </message>
    <message>
        <source>恢复交易…</source>
        <translation>Resume trading…</translation>
    </message>
    <message>
        <source>停止交易</source>
        <translation>Halt trading</translation>
    </message>
    <message>
        <source>交易台按钮</source>
        <translation>Button of the desk</translation>
    </message>
    <message>
        <source>交易已恢复</source>
        <translation>Trading is resumed</translation>
    </message>
    <message>
        <source>交易已停止：不再创建和发送，运行中的委托已要求撤单</source>
        <translation>Trading is halted: nothing more is created or sent, and working orders are asked to be cancelled</translation>
    </message>
    <message>
        <source>恢复交易</source>
        <translation>Resume trading</translation>
    </message>
    <message>
        <source>恢复全部账户的创建和发送？
%1</source>
        <translation>Let all accounts create and send again?
%1</translation>
    </message>
    <message>
        <source>已提交参数</source>
        <translation>Submitted parameters</translation>
    </message>
    <message>
        <source>确定后，提交的参数显示在这里</source>
        <translation>The parameters of a batch are shown here after 确定</translation>
    </message>
    <message>
        <source>未导入任何行</source>
        <translation>Nothing imported</translation>
    </message>
    <message>
        <source>已导入 %1 行</source>
        <translation>%1 row(s) imported</translation>
    </message>
    <message>
        <source>%1 个问题</source>
        <translation>%1 problem(s)</translation>
    </message>
    <message>
        <source>前两格为空而跳过 %1 行</source>
        <translation>%1 row(s) skipped, first two cells empty</translation>
    </message>
    <message>
        <source>已提交参数 %1</source>
        <translation>Submitted parameters %1</translation>
    </message>
    <message>
        <source>与批次 %1 的变更</source>
        <translation>Changes since batch %1</translation>
    </message>
    <message>
        <source>问题</source>
        <translation>Problems</translation>
    </message>
    <message>
        <source>问题 %1</source>
        <translation>Problems %1</translation>
    </message>
    <message>
        <source>显示全部批次</source>
        <translation>Show all batches</translation>
    </message>
    <message>
        <source>还没有实例</source>
        <translation>No instances yet</translation>
    </message>
    <message>
        <source>知道了</source>
        <translation>Got it</translation>
    </message>
    <message>
        <source>保存问题行</source>
        <translation>Save rejected rows</translation>
    </message>
    <message>
        <source>下一个 F8</source>
        <translation>Next F8</translation>
    </message>
    <message>
        <source>没有问题行</source>
        <translation>There are no rows with problems</translation>
    </message>
    <message>
        <source>表格文件 (*.csv *.xlsx)</source>
        <translation>Tables (*.csv *.xlsx)</translation>
    </message>
    <message>
        <source>已把 %1 行问题保存到 %2</source>
        <translation>%1 rejected row(s) saved to %2</translation>
    </message>
    <message>
        <source>导入文件后，其中的问题显示在这里</source>
        <translation>Import a file to see its problems here</translation>
    </message>
    <message>
        <source>没有问题</source>
        <translation>No problems</translation>
    </message>
    <message>
        <source>导入一个批次后，其中证券的行情显示在这里</source>
        <translation>The quotes of a batch&apos;s securities are shown here once it is imported</translation>
    </message>
    <message>
        <source>创建前检查</source>
        <translation>Check before creation</translation>
    </message>
    <message>
        <source>不能创建</source>
        <translation>Cannot be created</translation>
    </message>
    <message>
        <source>%1 · %2 · %3 个实例</source>
        <translation>%1 · %2 · %3 instances</translation>
    </message>
    <message>
        <source>买入合计 %1 元</source>
        <translation>Total buy %1 CNY</translation>
    </message>
    <message>
        <source>卖出合计 %1 元</source>
        <translation>Total sell %1 CNY</translation>
    </message>
    <message>
        <source>摘要</source>
        <translation>Summary</translation>
    </message>
    <message>
        <source>请逐条确认</source>
        <translation>Please confirm each</translation>
    </message>
    <message>
        <source>转到表格行 %1</source>
        <translation>Go to table row %1</translation>
    </message>
    <message>
        <source>金额较大，请再输入一次合计金额（整数元）：%1</source>
        <translation>A large amount: type the total once more (whole CNY): %1</translation>
    </message>
    <message>
        <source>合计金额</source>
        <translation>Total amount</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>创建</source>
        <translation>Create</translation>
    </message>
    <message>
        <source>仍然创建</source>
        <translation>Create anyway</translation>
    </message>
    <message>
        <source>%1，账号 %2</source>
        <translation>%1, account %2</translation>
    </message>
    <message>
        <source>%1，%2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>“%1”不是算法台账文件，未作任何改动；请移走该文件，或另选目录。</source>
        <translation>&quot;%1&quot; is not a ledger of the desk and was not touched; move it away, or choose another folder.</translation>
    </message>
    <message>
        <source>台账文件“%1”已损坏，未作任何改动；请保留该文件并从备份恢复。</source>
        <translation>The ledger &quot;%1&quot; is damaged and was not touched; keep it, and restore a backup.</translation>
    </message>
    <message>
        <source>台账文件“%1”由更新版本的程序写入（版本 %2，本程序支持到 %3）；请升级程序后再打开。</source>
        <translation>The ledger &quot;%1&quot; was written by a newer program (version %2; this one knows up to %3); upgrade the program first.</translation>
    </message>
    <message>
        <source>台账文件“%1”是旧版本（版本 %2）；请先打开一次交易台，由它升级。</source>
        <translation>The ledger &quot;%1&quot; is of an older version (%2); open the desk once, which upgrades it.</translation>
    </message>
    <message>
        <source>磁盘空间不足，台账文件“%1”未能写入；本次操作没有保存，原有批次不受影响。</source>
        <translation>The disk is full, so the ledger &quot;%1&quot; was not written; nothing of this was saved, and earlier batches are untouched.</translation>
    </message>
    <message>
        <source>台账文件“%1”或其目录只读，无法写入；请检查权限。</source>
        <translation>The ledger &quot;%1&quot; or its folder is read-only and cannot be written; check the permissions.</translation>
    </message>
    <message>
        <source>台账文件“%1”正忙，请稍后再试。</source>
        <translation>The ledger &quot;%1&quot; is busy; try again later.</translation>
    </message>
    <message>
        <source>台账文件“%1”无法打开；请检查路径和权限。</source>
        <translation>The ledger &quot;%1&quot; cannot be opened; check path and permissions.</translation>
    </message>
    <message>
        <source>台账文件“%1”读写出错（磁盘故障或已断开）；请检查磁盘。</source>
        <translation>The ledger &quot;%1&quot; could not be read or written (disk fault, or disconnected); check the disk.</translation>
    </message>
    <message>
        <source>台账文件“%1”无法读取；请检查磁盘。</source>
        <translation>The ledger &quot;%1&quot; cannot be read; check the disk.</translation>
    </message>
    <message>
        <source>台账文件“%1”是符号链接，未打开；请改用文件本身的路径。</source>
        <translation>The ledger &quot;%1&quot; is a symbolic link and was not opened; use the path of the file itself.</translation>
    </message>
    <message>
        <source>台账文件“%1”没有有效的版本号，可能已损坏，未作任何改动；请保留该文件并从备份恢复。</source>
        <translation>The ledger &quot;%1&quot; has no valid version number and may be damaged; it was not touched. Keep it, and restore a backup.</translation>
    </message>
    <message>
        <source>台账“%1”未能确认本次操作是否已保存：%2 请勿重做，先核对台账。</source>
        <translation>The ledger &quot;%1&quot; could not confirm whether this was saved: %2 Do not repeat it before you have looked into the ledger.</translation>
    </message>
    <message>
        <source>没有算法台账“%1”。</source>
        <translation>There is no ledger &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>台账“%1”是文件，限额由各程序按 limits.csv 执行；只有服务器上的台账自行保管限额。</source>
        <translation>The ledger &quot;%1&quot; is a file: each program keeps the limits of limits.csv; only a ledger on a server keeps limits of its own.</translation>
    </message>
    <message>
        <source>那里原先没有算法台账，已新建“%1”。</source>
        <translation>There was no ledger there; a new one was made: &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>台账地址无效：应为文件路径，或 postgresql://[用户@]主机[:端口]/数据库。</source>
        <translation>Not an address of a ledger: a file path, or postgresql://[USER@]HOST[:PORT]/DATABASE.</translation>
    </message>
    <message>
        <source>台账地址中不能有密码；请用 PGPASSWORD 或密码文件。</source>
        <translation>The address of a ledger must not hold a password; use PGPASSWORD or the password file.</translation>
    </message>
    <message>
        <source>本程序不能使用服务器上的台账。</source>
        <translation>This program cannot use a ledger on a server.</translation>
    </message>
    <message>
        <source>“%1”已存在，未覆盖；请另选文件名。</source>
        <translation>&quot;%1&quot; exists and was not overwritten; choose another name.</translation>
    </message>
    <message>
        <source>备份未能写入“%1”；请检查路径、权限和磁盘空间。</source>
        <translation>The backup could not be written to &quot;%1&quot;; check path, permissions and disk space.</translation>
    </message>
    <message>
        <source>未能恢复到“%1”，原台账未改动；请检查路径、权限和磁盘空间。</source>
        <translation>Could not restore to &quot;%1&quot;; the ledger there is untouched. Check path, permissions and disk space.</translation>
    </message>
    <message>
        <source>台账“%1”在服务器上：请用 pg_restore 恢复，或用 algodesk ledger copy 复制到空的台账。</source>
        <translation>The ledger &quot;%1&quot; is on a server: restore it by pg_restore, or copy one into an empty ledger by algodesk ledger copy.</translation>
    </message>
    <message>
        <source>已恢复到“%1”，但磁盘没有确认；请检查磁盘。</source>
        <translation>Restored to &quot;%1&quot;, but the disk did not confirm it; check the disk.</translation>
    </message>
    <message>
        <source>台账“%1”正被其他程序使用；请先关闭它们。</source>
        <translation>The ledger &quot;%1&quot; is in use by other programs; close them first.</translation>
    </message>
    <message>
        <source>台账文件“%1”操作失败：%2</source>
        <translation>The ledger &quot;%1&quot; failed: %2</translation>
    </message>
    <message>
        <source>台账文件“%1”以只读方式打开，不能创建或撤销。</source>
        <translation>The ledger &quot;%1&quot; was opened for reading alone; nothing can be created or undone.</translation>
    </message>
    <message>
        <source>批次没有标识，不能创建。</source>
        <translation>The batch has no identity and cannot be created.</translation>
    </message>
    <message>
        <source>批次标识未能写入“%1”，没有创建；请检查权限和磁盘空间。</source>
        <translation>The batch&apos;s identity could not be written to &quot;%1&quot;, and nothing was created; check permissions and disk space.</translation>
    </message>
    <message>
        <source>该文件此前已创建为批次 %1（%2 个实例），只是未及告知；没有再次创建。</source>
        <translation>The file was created before as batch %1 (%2 instances), which could not be told at the time; it was not created again.</translation>
    </message>
    <message>
        <source>批次中没有算法实例，不能创建。</source>
        <translation>The batch has no instance and cannot be created.</translation>
    </message>
    <message>
        <source>批次中有过长的数量或金额，不能创建。</source>
        <translation>The batch holds a quantity or an amount that is too long, and cannot be created.</translation>
    </message>
    <message>
        <source>台账文件“%1”中没有批次 %2。</source>
        <translation>The ledger &quot;%1&quot; has no batch %2.</translation>
    </message>
    <message>
        <source>批次 %1 由旧版本创建，没有保存导入表，无法比较。</source>
        <translation>Batch %1 was created by an older version that kept no table; it cannot be compared.</translation>
    </message>
    <message>
        <source>没有算法实例 %1。</source>
        <translation>There is no instance %1.</translation>
    </message>
    <message>
        <source>算法实例 %1 %2，不能改为%3。</source>
        <translation>Instance %1 is %2 and cannot become %3.</translation>
    </message>
    <message>
        <source>全部账号已暂停交易（%1）：%2</source>
        <translation>Trading is halted for all accounts (%1): %2</translation>
    </message>
    <message>
        <source>账号 %1 已暂停交易（%2）：%3</source>
        <translation>Trading is halted for account %1 (%2): %3</translation>
    </message>
    <message>
        <source>请说明原因。</source>
        <translation>A reason is needed.</translation>
    </message>
    <message>
        <source>没有对全部账号的暂停。</source>
        <translation>There is no halt of all accounts.</translation>
    </message>
    <message>
        <source>账号 %1 没有暂停。</source>
        <translation>Account %1 is not halted.</translation>
    </message>
    <message>
        <source>批次 %1 %2，不在等待复核。</source>
        <translation>Batch %1 is %2 and does not wait for approval.</translation>
    </message>
    <message>
        <source>批次 %1 由您创建，须由另一人复核。</source>
        <translation>Batch %1 is your own; another person must approve it.</translation>
    </message>
    <message>
        <source>批次 %1 的交易日已结束，复核申请已失效。</source>
        <translation>The exchange day of batch %1 is over, and its request for approval has lapsed.</translation>
    </message>
    <message>
        <source>批次 %1 或其限额在申请复核后有改动，申请已失效；请重新创建。</source>
        <translation>Batch %1 or its limits changed after approval was asked for, and the request has lapsed; create it again.</translation>
    </message>
    <message>
        <source>批次 %1 %2，不能启动。</source>
        <translation>Batch %1 is %2 and cannot be started.</translation>
    </message>
    <message>
        <source>这些账号已由另一个网关服务：%1。</source>
        <translation>Another gateway serves these accounts already: %1.</translation>
    </message>
    <message>
        <source>还有 %1 个实例待发送或未结束，不能撤销网关登记。</source>
        <translation>%1 instance(s) are still queued or open; the gateway&apos;s registration cannot be taken back.</translation>
    </message>
    <message>
        <source>算法实例 %1 %2，不需要核对。</source>
        <translation>Instance %1 is %2 and needs no settling.</translation>
    </message>
    <message>
        <source>%1 不能为负数：%2</source>
        <translation>%1 must not be negative: %2</translation>
    </message>
    <message>
        <source>不能创建：%1。</source>
        <translation>Cannot be created: %1.</translation>
    </message>
    <message>
        <source>有警告未确认：%1。</source>
        <translation>Warnings are not confirmed: %1.</translation>
    </message>
    <message>
        <source>总金额达到复核标准，请再次输入总金额 %1 元。</source>
        <translation>The total needs a second look; type the total amount, %1 CNY, once more.</translation>
    </message>
    <message>
        <source>导入时有提示，没有创建；如确认可以忽略，请加 --yes。</source>
        <translation>The import had messages, and nothing was created; add --yes if they do not matter.</translation>
    </message>
    <message>
        <source>批次未能确定，没有创建。</source>
        <translation>The batch could not be confirmed, and was not created.</translation>
    </message>
    <message>
        <source>待复核</source>
        <translation>waiting for approval</translation>
    </message>
    <message>
        <source>已撤销</source>
        <translation>undone</translation>
    </message>
    <message>
        <source>部分撤销</source>
        <translation>partly undone</translation>
    </message>
    <message>
        <source>复核拒绝</source>
        <translation>refused</translation>
    </message>
    <message>
        <source>已失效</source>
        <translation>lapsed</translation>
    </message>
    <message>
        <source>未启动</source>
        <translation>not started</translation>
    </message>
    <message>
        <source>待发送</source>
        <translation>queued</translation>
    </message>
    <message>
        <source>发送中</source>
        <translation>sending</translation>
    </message>
    <message>
        <source>运行中</source>
        <translation>running</translation>
    </message>
    <message>
        <source>撤单中</source>
        <translation>stopping</translation>
    </message>
    <message>
        <source>已撤单</source>
        <translation>stopped</translation>
    </message>
    <message>
        <source>已完成</source>
        <translation>finished</translation>
    </message>
    <message>
        <source>已拒绝</source>
        <translation>rejected</translation>
    </message>
    <message>
        <source>待核对</source>
        <translation>unknown</translation>
    </message>
    <message>
        <source>已撤回</source>
        <translation>withdrawn</translation>
    </message>
    <message>
        <source>缺少 PostgreSQL 驱动（libqt5sql5-psql），不能使用服务器上的台账。</source>
        <translation>The driver of PostgreSQL (libqt5sql5-psql) is missing; a ledger on a server cannot be used.</translation>
    </message>
    <message>
        <source>台账服务器“%1”无法连接或拒绝登录；请检查网络、用户和密码文件。</source>
        <translation>The server of the ledger &quot;%1&quot; cannot be reached or refuses the login; check network, user and password file.</translation>
    </message>
    <message>
        <source>与台账服务器“%1”的连接已断开；请稍后再试。</source>
        <translation>The connection to the server of the ledger &quot;%1&quot; is lost; try again later.</translation>
    </message>
    <message>
        <source>台账服务器“%1”正忙，请稍后再试。</source>
        <translation>The server of the ledger &quot;%1&quot; is busy; try again later.</translation>
    </message>
    <message>
        <source>台账服务器“%1”磁盘空间不足；本次操作没有保存，原有批次不受影响。</source>
        <translation>The disk of the server of the ledger &quot;%1&quot; is full; nothing of this was saved, and earlier batches are untouched.</translation>
    </message>
    <message>
        <source>“%1”中没有台账；请先运行 algodesk ledger init。</source>
        <translation>There is no ledger in &quot;%1&quot;; run algodesk ledger init first.</translation>
    </message>
    <message>
        <source>台账“%1”由更新版本的程序建立（版本 %2，本程序支持到 %3）；请升级程序后再打开。</source>
        <translation>The ledger &quot;%1&quot; was made by a newer program (version %2; this one knows up to %3); upgrade the program first.</translation>
    </message>
    <message>
        <source>台账“%1”是旧版本（版本 %2）；请由管理员运行 algodesk ledger init 升级。</source>
        <translation>The ledger &quot;%1&quot; is of an older version (%2); let an administrator upgrade it by algodesk ledger init.</translation>
    </message>
    <message>
        <source>“%1”中有其他程序的数据，未作任何改动；请另用一个空的数据库。</source>
        <translation>&quot;%1&quot; holds another program&apos;s data and was not touched; use an empty database.</translation>
    </message>
    <message>
        <source>数据库“%1”的编码不是 UTF8，不能存放台账。</source>
        <translation>The encoding of the database &quot;%1&quot; is not UTF8; it cannot hold a ledger.</translation>
    </message>
    <message>
        <source>台账“%1”内容不一致：%2；请保留并从备份恢复。</source>
        <translation>The ledger &quot;%1&quot; is inconsistent: %2; keep it, and restore a backup.</translation>
    </message>
    <message>
        <source>您在台账“%1”中的角色不允许此操作。</source>
        <translation>Your role in the ledger &quot;%1&quot; does not allow this.</translation>
    </message>
    <message>
        <source>台账“%1”拒绝改动已有记录。</source>
        <translation>The ledger &quot;%1&quot; refuses to change what is recorded.</translation>
    </message>
    <message>
        <source>台账“%1”拒绝：超过风控在服务器上设定的上限。</source>
        <translation>The ledger &quot;%1&quot; refuses: beyond a ceiling that risk control set on the server.</translation>
    </message>
    <message>
        <source>台账“%1”拒绝：账号已暂停交易。</source>
        <translation>The ledger &quot;%1&quot; refuses: trading is halted for the account.</translation>
    </message>
    <message>
        <source>台账“%1”拒绝：须由另一人复核。</source>
        <translation>The ledger &quot;%1&quot; refuses: another person must approve it.</translation>
    </message>
    <message>
        <source>台账“%1”拒绝：批次不完整。</source>
        <translation>The ledger &quot;%1&quot; refuses: the batch is incomplete.</translation>
    </message>
    <message>
        <source>台账“%1”拒绝：改动没有相应的审计记录。</source>
        <translation>The ledger &quot;%1&quot; refuses: the change has no audit entry.</translation>
    </message>
    <message>
        <source>台账“%1”拒绝：本机时钟与服务器相差过大；请校准。</source>
        <translation>The ledger &quot;%1&quot; refuses: this machine&apos;s clock is too far from the server&apos;s; set it right.</translation>
    </message>
    <message>
        <source>台账“%1”操作失败：%2</source>
        <translation>The ledger &quot;%1&quot; failed: %2</translation>
    </message>
    <message>
        <source>台账“%1”在服务器上：请用 pg_dump 备份，或用 algodesk ledger copy 复制到文件。</source>
        <translation>The ledger &quot;%1&quot; is on a server: back it up by pg_dump, or copy it to a file by algodesk ledger copy.</translation>
    </message>
    <message>
        <source>台账“%1”不是空的，没有复制。</source>
        <translation>The ledger &quot;%1&quot; is not empty; nothing was copied.</translation>
    </message>
    <message>
        <source>复制到“%1”的内容与原台账不一致（%2），已撤销。</source>
        <translation>The copy in &quot;%1&quot; differs from the original (%2) and was taken back.</translation>
    </message>
    <message>
        <source>另一个会话</source>
        <translation>another session</translation>
    </message>
    <message>
        <source>本程序</source>
        <translation>this program</translation>
    </message>
    <message>
        <source>不认识的列“%1”</source>
        <translation>unknown column &quot;%1&quot;</translation>
    </message>
    <message>
        <source>列“%1”重复</source>
        <translation>column &quot;%1&quot; stands twice</translation>
    </message>
    <message>
        <source>缺少列“%1”</source>
        <translation>column &quot;%1&quot; is missing</translation>
    </message>
    <message>
        <source>有 %1 个单元格，表头只有 %2 列</source>
        <translation>%1 cells, but the header has only %2 columns</translation>
    </message>
    <message>
        <source>单元格超过 %1 个字符</source>
        <translation>a cell has more than %1 characters</translation>
    </message>
    <message>
        <source>MsgType 应为 8 或 9：%1</source>
        <translation>MsgType must be 8 or 9: %1</translation>
    </message>
    <message>
        <source>状态答复缺少 OrdStatusReqID</source>
        <translation>a status answer lacks OrdStatusReqID</translation>
    </message>
    <message>
        <source>第 %1 行：%2</source>
        <translation>row %1: %2</translation>
    </message>
    <message>
        <source>文件超过 %1 MiB</source>
        <translation>the file is larger than %1 MiB</translation>
    </message>
    <message>
        <source>不是有效的 UTF-8 文本</source>
        <translation>not valid UTF-8 text</translation>
    </message>
    <message>
        <source>超过 %1 行</source>
        <translation>more than %1 rows</translation>
    </message>
    <message>
        <source>文件夹无法访问</source>
        <translation>the folder cannot be reached</translation>
    </message>
    <message>
        <source>中断</source>
        <translation>interrupted</translation>
    </message>
    <message>
        <source>%1：没有写完，最后一行未换行或引号未闭合</source>
        <translation>%1: not finished; its last line is not ended, or a quote not closed</translation>
    </message>
    <message>
        <source>“%1”正由另一个网关使用</source>
        <translation>&quot;%1&quot; is in use by another gateway</translation>
    </message>
    <message>
        <source>无法锁定文件夹“%1”</source>
        <translation>Cannot lock the folder &quot;%1&quot;</translation>
    </message>
    <message>
        <source>无法读取：%1</source>
        <translation>cannot read: %1</translation>
    </message>
    <message>
        <source>strategies.%1.parameters[%2].name：“%3”是另一列的名称</source>
        <translation>strategies.%1.parameters[%2].name: &quot;%3&quot; is the name of another column</translation>
    </message>
    <message>
        <source>日期时间</source>
        <translation>date and time</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>date</translation>
    </message>
    <message>
        <source>1 或 0</source>
        <translation>1 or 0</translation>
    </message>
    <message>
        <source>单个字符</source>
        <translation>single character</translation>
    </message>
    <message>
        <source>不含控制字符的文本</source>
        <translation>text without control characters</translation>
    </message>
    <message>
        <source>大于零的数字</source>
        <translation>number above zero</translation>
    </message>
    <message>
        <source>网关配置中没有算法“%1”</source>
        <translation>The gateway&apos;s profile has no strategy &quot;%1&quot;</translation>
    </message>
    <message>
        <source>网关配置中没有市场“%1”</source>
        <translation>The gateway&apos;s profile has no exchange &quot;%1&quot;</translation>
    </message>
    <message>
        <source>网关配置中没有交易方向“%1”</source>
        <translation>The gateway&apos;s profile has no side &quot;%1&quot;</translation>
    </message>
    <message>
        <source>网关配置中参数“%1”既未映射也未忽略</source>
        <translation>The gateway&apos;s profile neither maps nor ignores the parameter &quot;%1&quot;</translation>
    </message>
    <message>
        <source>网关配置中参数“%1”没有取值“%2”</source>
        <translation>The gateway&apos;s profile has no value &quot;%2&quot; of the parameter &quot;%1&quot;</translation>
    </message>
    <message>
        <source>参数“%1”的值“%2”不是%3</source>
        <translation>The value &quot;%2&quot; of the parameter &quot;%1&quot; is no %3</translation>
    </message>
    <message>
        <source>缺少“%1”</source>
        <translation>&quot;%1&quot; is missing</translation>
    </message>
    <message>
        <source>两腿的参数“%1”不一致，网关配置中没有 legTag</source>
        <translation>The legs differ in the parameter &quot;%1&quot;, and the gateway&apos;s profile has no legTag</translation>
    </message>
    <message>
        <source>两腿交易方向的字段 %1 不一致</source>
        <translation>The sides of the legs differ in field %1</translation>
    </message>
    <message>
        <source>实例有 %1 个标的，网关只能发送一个或两个</source>
        <translation>The instance has %1 securities; the gateway sends one or two</translation>
    </message>
    <message>
        <source>字段 %1 被填写两次，请检查网关配置</source>
        <translation>Field %1 is filled twice; check the gateway&apos;s profile</translation>
    </message>
    <message>
        <source>配对编号“%1”中有实例不能发送：%2</source>
        <translation>An instance of the pair &quot;%1&quot; cannot be sent: %2</translation>
    </message>
    <message>
        <source>应为%1</source>
        <translation>must be: %1</translation>
    </message>
    <message>
        <source>非空文本</source>
        <translation>text that is not empty</translation>
    </message>
    <message>
        <source>true 或 false</source>
        <translation>true or false</translation>
    </message>
    <message>
        <source>正整数</source>
        <translation>positive whole number</translation>
    </message>
    <message>
        <source>文本数组</source>
        <translation>array of texts</translation>
    </message>
    <message>
        <source>对象</source>
        <translation>object</translation>
    </message>
    <message>
        <source>未知的键</source>
        <translation>unknown key</translation>
    </message>
    <message>
        <source>应为字段号</source>
        <translation>must be the number of a field</translation>
    </message>
    <message>
        <source>字段 %1 由程序填写</source>
        <translation>field %1 is filled by the program</translation>
    </message>
    <message>
        <source>含有控制字符</source>
        <translation>holds control characters</translation>
    </message>
    <message>
        <source>缺少字段 54</source>
        <translation>field 54 is missing</translation>
    </message>
    <message>
        <source>常量没有取值</source>
        <translation>a constant has no values</translation>
    </message>
    <message>
        <source>constant 与 paramId 应有且只有一个</source>
        <translation>exactly one of constant and paramId is needed</translation>
    </message>
    <message>
        <source>tag 与 name 应有且只有一个</source>
        <translation>exactly one of tag and name is needed</translation>
    </message>
    <message>
        <source>没有任何取值</source>
        <translation>there are no values</translation>
    </message>
    <message>
        <source>重复</source>
        <translation>stands twice</translation>
    </message>
    <message>
        <source>参数“%1”既要发送又要忽略</source>
        <translation>the parameter &quot;%1&quot; is both sent and ignored</translation>
    </message>
    <message>
        <source>没有任何账号；所有账号请删去此键</source>
        <translation>there are no accounts; leave the key out for all of them</translation>
    </message>
    <message>
        <source>第 %1 行第 %2 列</source>
        <translation>line %1, column %2</translation>
    </message>
    <message>
        <source>%1：不是正确的 JSON（%2）</source>
        <translation>%1: not correct JSON (%2)</translation>
    </message>
    <message>
        <source>应为一个 JSON 对象</source>
        <translation>must be a JSON object</translation>
    </message>
    <message>
        <source>拒绝了未知的消息：%1</source>
        <translation>An unknown message was rejected: %1</translation>
    </message>
    <message>
        <source>不是本台账的订单</source>
        <translation>not an order of this ledger</translation>
    </message>
    <message>
        <source>连接中断，对手方不支持状态查询</source>
        <translation>The connection broke, and the counterparty cannot be asked for states</translation>
    </message>
    <message>
        <source>对手方没有答复</source>
        <translation>The counterparty does not answer</translation>
    </message>
    <message>
        <source>对手方前后答复矛盾：曾有成交或称已收到，现称没有此订单</source>
        <translation>The counterparty contradicts itself: it filled or had the order, and now does not know it</translation>
    </message>
    <message>
        <source>对手方没有此订单，按配置不再自动发送</source>
        <translation>The counterparty does not have the order, which by the profile is not sent again</translation>
    </message>
    <message>
        <source>对手方称已收到此订单，状态未知</source>
        <translation>The counterparty says that it had the order; its state is unknown</translation>
    </message>
    <message>
        <source>对手方拒绝，未说明原因</source>
        <translation>Rejected by the counterparty without a reason</translation>
    </message>
    <message>
        <source>对手方拒绝，代码 %1</source>
        <translation>Rejected by the counterparty, code %1</translation>
    </message>
    <message>
        <source>回报没有说明是哪一腿</source>
        <translation>the report does not say which leg</translation>
    </message>
    <message>
        <source>未知的订单状态“%1”</source>
        <translation>unknown order status &quot;%1&quot;</translation>
    </message>
    <message>
        <source>撤单被拒绝：%1</source>
        <translation>The cancel was rejected: %1</translation>
    </message>
    <message>
        <source>“%1”不是数量或价格</source>
        <translation>&quot;%1&quot; is no quantity or price</translation>
    </message>
    <message>
        <source>成交数量 %1 超过委托数量 %2</source>
        <translation>the filled quantity %1 is above the ordered %2</translation>
    </message>
    <message>
        <source>回报缺少字段 %1</source>
        <translation>the report lacks field %1</translation>
    </message>
    <message>
        <source>“%1”不是数字</source>
        <translation>&quot;%1&quot; is no number</translation>
    </message>
    <message>
        <source>“%1”（时区“%2”）不是可用的时间</source>
        <translation>&quot;%1&quot; (time zone &quot;%2&quot;) is no usable time</translation>
    </message>
    <message>
        <source>初始值取自委托的字段，表中没有</source>
        <translation>the first value comes from a field of the order that the table does not have</translation>
    </message>
    <message>
        <source>初始值“%1”无法用作默认值</source>
        <translation>the first value &quot;%1&quot; cannot be a default</translation>
    </message>
    <message>
        <source>已过初始时间时不会改用当前时间</source>
        <translation>the current time is not taken in place of a first time that has passed</translation>
    </message>
    <message>
        <source>没有编号为“%1”的 Edit</source>
        <translation>there is no Edit with the id &quot;%1&quot;</translation>
    </message>
    <message>
        <source>逻辑运算“%1”有误</source>
        <translation>the logic operator &quot;%1&quot; is wrong</translation>
    </message>
    <message>
        <source>表中没有“%1”</source>
        <translation>the table has no &quot;%1&quot;</translation>
    </message>
    <message>
        <source>FIX_OrdType 不能用“%1”比较</source>
        <translation>FIX_OrdType cannot be compared by &quot;%1&quot;</translation>
    </message>
    <message>
        <source>“%1”不能用“%2”比较</source>
        <translation>&quot;%1&quot; cannot be compared by &quot;%2&quot;</translation>
    </message>
    <message>
        <source>“%1”与“%2”的类型不同</source>
        <translation>&quot;%1&quot; and &quot;%2&quot; are of different types</translation>
    </message>
    <message>
        <source>“%1”没有取值“%2”</source>
        <translation>&quot;%1&quot; has no value &quot;%2&quot;</translation>
    </message>
    <message>
        <source>没有条件</source>
        <translation>no condition</translation>
    </message>
    <message>
        <source>本系统没有此市场</source>
        <translation>this system has no such market</translation>
    </message>
    <message>
        <source>不支持的类型“%1”</source>
        <translation>type &quot;%1&quot; is not supported</translation>
    </message>
    <message>
        <source>不支持 invertOnWire</source>
        <translation>invertOnWire is not supported</translation>
    </message>
    <message>
        <source>不支持的常量“%1”</source>
        <translation>constant &quot;%1&quot; is not supported</translation>
    </message>
    <message>
        <source>取值 {NULL} 表示不发送：请将单元格留空</source>
        <translation>the value {NULL} means not sent: leave the cell empty</translation>
    </message>
    <message>
        <source>整个算法未写出：%1</source>
        <translation>the whole strategy is left out: %1</translation>
    </message>
    <message>
        <source>算法代码“%1”在本系统另有含义或为空</source>
        <translation>the strategy code &quot;%1&quot; is empty or means something else here</translation>
    </message>
    <message>
        <source>算法代码“%1”重复</source>
        <translation>the strategy code &quot;%1&quot; stands twice</translation>
    </message>
    <message>
        <source>消息类型“%1”不是 D</source>
        <translation>message type &quot;%1&quot; is not D</translation>
    </message>
    <message>
        <source>缺少 wireValue</source>
        <translation>wireValue is missing</translation>
    </message>
    <message>
        <source>strategyIdentifierTag 缺少或由程序填写</source>
        <translation>strategyIdentifierTag is missing, or is filled by the program</translation>
    </message>
    <message>
        <source>必填参数或常量“%1”无法转换</source>
        <translation>the required parameter or constant &quot;%1&quot; cannot be translated</translation>
    </message>
    <message>
        <source>没有可用的 fixTag，文件也不支持参数组（tag957Support）</source>
        <translation>there is no usable fixTag, and the file has no parameter group (tag957Support)</translation>
    </message>
    <message>
        <source>必填参数或常量“%1”没有去处</source>
        <translation>the required parameter or constant &quot;%1&quot; has nowhere to go</translation>
    </message>
    <message>
        <source>参数组中的类型（959）为 Float，不是 Percentage</source>
        <translation>the type in the parameter group (959) is Float, not Percentage</translation>
    </message>
    <message>
        <source>版本号没有可用的字段</source>
        <translation>there is no usable field for the version</translation>
    </message>
    <message>
        <source>不是 FIXatdl 1.1 文件：最外层是“%1”，命名空间“%2”</source>
        <translation>Not a FIXatdl 1.1 file: the outermost element is &quot;%1&quot; in the namespace &quot;%2&quot;</translation>
    </message>
    <message>
        <source>文件中没有算法（Strategy）</source>
        <translation>The file has no Strategy</translation>
    </message>
    <message>
        <source>不支持的属性“%1”</source>
        <translation>attribute &quot;%1&quot; is not supported</translation>
    </message>
    <message>
        <source>录入界面的联动规则，表中没有：请按算法说明填写</source>
        <translation>a rule between controls, which a table does not have: fill it in as the strategy&apos;s description says</translation>
    </message>
    <message>
        <source>不支持的元素</source>
        <translation>element is not supported</translation>
    </message>
    <message>
        <source>不是正确的 XML（%1）</source>
        <translation>not correct XML (%1)</translation>
    </message>
    <message>
        <source>第 %1 行第 %2 列：%3</source>
        <translation>line %1, column %2: %3</translation>
    </message>
    <message>
        <source>不接受文档类型声明（DOCTYPE）</source>
        <translation>a document type declaration (DOCTYPE) is not taken</translation>
    </message>
    <message>
        <source>命名空间声明超过 %1 个</source>
        <translation>more than %1 namespaces are declared</translation>
    </message>
    <message>
        <source>元素嵌套超过 %1 层</source>
        <translation>elements are nested deeper than %1</translation>
    </message>
    <message>
        <source>元素超过 %1 个</source>
        <translation>more than %1 elements</translation>
    </message>
    <message>
        <source>属性过多或过长</source>
        <translation>too many attributes, or too long</translation>
    </message>
    <message>
        <source>文本超过 %1 个字符</source>
        <translation>a text has more than %1 characters</translation>
    </message>
    <message>
        <source>磁盘空间不足</source>
        <translation>the disk is full</translation>
    </message>
    <message>
        <source>磁盘配额已用完</source>
        <translation>the disk quota is used up</translation>
    </message>
    <message>
        <source>磁盘读写出错</source>
        <translation>the disk failed</translation>
    </message>
    <message>
        <source>磁盘是只读的</source>
        <translation>the disk is read-only</translation>
    </message>
    <message>
        <source>没有写入权限</source>
        <translation>no permission to write</translation>
    </message>
    <message>
        <source>文件夹不存在</source>
        <translation>the folder does not exist</translation>
    </message>
    <message>
        <source>文件名过长</source>
        <translation>the file name is too long</translation>
    </message>
    <message>
        <source>文件过大</source>
        <translation>the file is too large</translation>
    </message>
    <message>
        <source>系统错误%1（%2）</source>
        <translation>system error %1 (%2)</translation>
    </message>
    <message>
        <source>该名称是一个文件夹</source>
        <translation>there is a folder of that name</translation>
    </message>
    <message>
        <source>不是普通文件</source>
        <translation>not a regular file</translation>
    </message>
    <message>
        <source>已写入，但磁盘没有确认：%1</source>
        <translation>written, but the disk did not confirm it: %1</translation>
    </message>
    <message>
        <source>无法写入文件“%1”：%2</source>
        <translation>Cannot write the file &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>%1 应为 yyyy-MM-dd 的日期：%2</source>
        <translation>%1 must be a date yyyy-MM-dd: %2</translation>
    </message>
    <message>
        <source>sessions 应为 HH:mm-HH:mm，多段以竖线分隔，至多 %1 段：%2</source>
        <translation>sessions must be HH:mm-HH:mm, several separated by a vertical bar, at most %1: %2</translation>
    </message>
    <message>
        <source>%1 至 %2 的天数应在 1 到 %3 之间</source>
        <translation>%1 to %2 must be 1 to %3 days</translation>
    </message>
    <message>
        <source>文件不存在</source>
        <translation>the file does not exist</translation>
    </message>
    <message>
        <source>无法读取文件：%1</source>
        <translation>the file cannot be read: %1</translation>
    </message>
    <message>
        <source>超过 %1 个算法</source>
        <translation>more than %1 strategies</translation>
    </message>
    <message>
        <source>该行超过 %1 列</source>
        <translation>the row has more than %1 columns</translation>
    </message>
    <message>
        <source>%1超过 %2 个字符</source>
        <translation>%1 has more than %2 characters</translation>
    </message>
    <message>
        <source>单元格</source>
        <translation>A cell</translation>
    </message>
    <message>
        <source>不是有效的 UTF-8 编码</source>
        <translation>not valid UTF-8</translation>
    </message>
    <message>
        <source>引号没有闭合</source>
        <translation>a quote is not closed</translation>
    </message>
    <message>
        <source>缺少表头</source>
        <translation>there is no header</translation>
    </message>
    <message>
        <source>表头缺少 %1 列</source>
        <translation>the header lacks the column %1</translation>
    </message>
    <message>
        <source>表头缺少 %1 列，疑似误写为“%2”</source>
        <translation>the header lacks the column %1, perhaps misspelt as &quot;%2&quot;</translation>
    </message>
    <message>
        <source>缺少 %1，疑似误写为“%2”</source>
        <translation>%1 is missing, perhaps misspelt as &quot;%2&quot;</translation>
    </message>
    <message>
        <source>表头中 %1 列重复</source>
        <translation>the column %1 stands twice in the header</translation>
    </message>
    <message>
        <source>该行有 %1 个单元格，表头只有 %2 列</source>
        <translation>the row has %1 cells, but the header only %2 columns</translation>
    </message>
    <message>
        <source>%1 不能为空</source>
        <translation>%1 must not be empty</translation>
    </message>
    <message>
        <source>%1 重复：%2，首次出现在第 %3 行</source>
        <translation>%1 stands twice: %2, first in line %3</translation>
    </message>
    <message>
        <source>%1 应为整数：%2</source>
        <translation>%1 must be a whole number: %2</translation>
    </message>
    <message>
        <source>%1 应在 %2 到 %3 之间：%4</source>
        <translation>%1 must be from %2 to %3: %4</translation>
    </message>
    <message>
        <source>%1 应为数字：%2</source>
        <translation>%1 must be a number: %2</translation>
    </message>
    <message>
        <source>%1 应为 0 或 1：%2</source>
        <translation>%1 must be 0 or 1: %2</translation>
    </message>
    <message>
        <source>JSON 语法错误：%1</source>
        <translation>JSON syntax error: %1</translation>
    </message>
    <message>
        <source>最外层应为数组</source>
        <translation>the outermost value must be an array</translation>
    </message>
    <message>
        <source>数组元素应为对象</source>
        <translation>the elements of the array must be objects</translation>
    </message>
    <message>
        <source>%1 应为字符串</source>
        <translation>%1 must be a text</translation>
    </message>
    <message>
        <source>%1 应为数组、对象或字符串</source>
        <translation>%1 must be an array, an object or a text</translation>
    </message>
    <message>
        <source>文本表格 (*.csv *.txt *.tsv);;所有文件 (*)</source>
        <translation>Text tables (*.csv *.txt *.tsv);;All files (*)</translation>
    </message>
    <message>
        <source>电子表格 (*.xlsx *.xlsm *.xls *.ods);;所有文件 (*)</source>
        <translation>Spreadsheets (*.xlsx *.xlsm *.xls *.ods);;All files (*)</translation>
    </message>
    <message>
        <source>表格文件 (*.csv *.txt *.tsv *.xlsx *.xlsm *.xls *.ods);;所有文件 (*)</source>
        <translation>Tables (*.csv *.txt *.tsv *.xlsx *.xlsm *.xls *.ods);;All files (*)</translation>
    </message>
    <message>
        <source>所选路径是文件夹，不是文件</source>
        <translation>The path is a folder, not a file</translation>
    </message>
    <message>
        <source>所选路径不是普通文件，无法读取</source>
        <translation>The path is no regular file and cannot be read</translation>
    </message>
    <message>
        <source>文件无法打开，可能正被其他程序占用或没有读取权限：%1</source>
        <translation>The file cannot be opened; another program may hold it, or the permission is missing: %1</translation>
    </message>
    <message>
        <source>文件在读取之后被修改，请重新导入</source>
        <translation>The file was changed after it was read; import it again</translation>
    </message>
    <message>
        <source>文件已加密或受权限保护，请取消密码或保护后另存再导入</source>
        <translation>The file is encrypted or protected; save it without password or protection and import it again</translation>
    </message>
    <message>
        <source>文件内容是网页（HTML），不是表格，请另存为xlsx或csv后再导入</source>
        <translation>The file is a web page (HTML), not a table; save it as xlsx or csv and import that</translation>
    </message>
    <message>
        <source>文件内容是单个文件网页（MHTML），请另存为xlsx或csv后再导入</source>
        <translation>The file is a single-file web page (MHTML); save it as xlsx or csv and import that</translation>
    </message>
    <message>
        <source>文件内容是XML电子表格2003，请另存为xlsx后再导入</source>
        <translation>The file is an XML Spreadsheet 2003; save it as xlsx and import that</translation>
    </message>
    <message>
        <source>文件内容是单个XML的OpenDocument表格，请另存为xlsx或ods后再导入</source>
        <translation>The file is an OpenDocument table in a single XML file; save it as xlsx or ods and import that</translation>
    </message>
    <message>
        <source>文件内容是XML，不是表格，请另存为xlsx或csv后再导入</source>
        <translation>The file is XML, not a table; save it as xlsx or csv and import that</translation>
    </message>
    <message>
        <source>文件内容是RTF文档，不是表格</source>
        <translation>The file is an RTF document, not a table</translation>
    </message>
    <message>
        <source>文件内容是PDF文档，不是表格</source>
        <translation>The file is a PDF document, not a table</translation>
    </message>
    <message>
        <source>文件内容是图片，不是表格</source>
        <translation>The file is a picture, not a table</translation>
    </message>
    <message>
        <source>文件是压缩包，请解压后导入其中的表格</source>
        <translation>The file is an archive; unpack it and import the table inside</translation>
    </message>
    <message>
        <source>文件是压缩包或其他程序的文件，里面没有可读取的表格</source>
        <translation>The file is an archive or another program&apos;s file, without a table that can be read</translation>
    </message>
    <message>
        <source>不支持xlsb（二进制工作簿），请另存为xlsx后再导入</source>
        <translation>xlsb (binary workbook) is not supported; save it as xlsx and import that</translation>
    </message>
    <message>
        <source>文件是文档、演示文稿或其他程序的文件，不是表格</source>
        <translation>The file is a document, a presentation or another program&apos;s file, not a table</translation>
    </message>
    <message>
        <source>不支持1993年以前的xls格式（BIFF2至BIFF4），请另存为xlsx后再导入</source>
        <translation>xls from before 1993 (BIFF2 to BIFF4) is not supported; save it as xlsx and import that</translation>
    </message>
    <message>
        <source>文件不是文本，也不是可识别的表格（含有值为零的字节）</source>
        <translation>The file is neither text nor a known kind of table (it holds zero bytes)</translation>
    </message>
    <message>
        <source>文件已损坏，无法读取：%1</source>
        <translation>The file is damaged and cannot be read: %1</translation>
    </message>
    <message>
        <source>压缩结构不完整</source>
        <translation>the archive is incomplete</translation>
    </message>
    <message>
        <source>复合文档结构不完整</source>
        <translation>the compound document is incomplete</translation>
    </message>
    <message>
        <source>缺少部件%1</source>
        <translation>part %1 is missing</translation>
    </message>
    <message>
        <source>部件%1校验失败</source>
        <translation>part %1 fails its checksum</translation>
    </message>
    <message>
        <source>部件%1第%2行第%3列不是有效的XML</source>
        <translation>part %1 is not valid XML at line %2, column %3</translation>
    </message>
    <message>
        <source>部件%1的内容与其用途不符</source>
        <translation>part %1 holds something else than it should</translation>
    </message>
    <message>
        <source>部件%1的单元格地址“%2”无效</source>
        <translation>part %1 has a bad cell address &quot;%2&quot;</translation>
    </message>
    <message>
        <source>部件%1的行号“%2”无效</source>
        <translation>part %1 has a bad row number &quot;%2&quot;</translation>
    </message>
    <message>
        <source>缺少工作表“%1”的内容</source>
        <translation>the content of the sheet &quot;%1&quot; is missing</translation>
    </message>
    <message>
        <source>部件%1的文字编码不受支持，请用电子表格程序另存后再导入</source>
        <translation>The text encoding of part %1 is not supported; save the file anew in a spreadsheet program and import it again</translation>
    </message>
    <message>
        <source>文件含有不允许的文档类型声明（部件%1），已拒绝读取</source>
        <translation>The file holds a document type declaration (part %1), which is not allowed; it was not read</translation>
    </message>
    <message>
        <source>工作簿数据不完整</source>
        <translation>the workbook is incomplete</translation>
    </message>
    <message>
        <source>单元格%1引用的文本不存在</source>
        <translation>cell %1 refers to a text that does not exist</translation>
    </message>
    <message>
        <source>文件中没有工作表</source>
        <translation>The file has no sheet</translation>
    </message>
    <message>
        <source>文件超出读取限制：%1</source>
        <translation>The file is beyond what is read: %1</translation>
    </message>
    <message>
        <source>工作表过多</source>
        <translation>too many sheets</translation>
    </message>
    <message>
        <source>第%1行超过%2列</source>
        <translation>row %1 has more than %2 columns</translation>
    </message>
    <message>
        <source>单元格过多</source>
        <translation>too many cells</translation>
    </message>
    <message>
        <source>单元格%1的文字过长</source>
        <translation>the text of cell %1 is too long</translation>
    </message>
    <message>
        <source>文字总量过大</source>
        <translation>too much text in all</translation>
    </message>
    <message>
        <source>压缩包内文件过多</source>
        <translation>too many files in the archive</translation>
    </message>
    <message>
        <source>部件%1解压后过大</source>
        <translation>part %1 is too large when unpacked</translation>
    </message>
    <message>
        <source>部件%1的一个标签中属性过多</source>
        <translation>an element of part %1 has too many attributes</translation>
    </message>
    <message>
        <source>部件%1的命名空间过多</source>
        <translation>part %1 has too many namespaces</translation>
    </message>
    <message>
        <source>部件%1嵌套过深</source>
        <translation>part %1 is nested too deep</translation>
    </message>
    <message>
        <source>记录过多</source>
        <translation>too many records</translation>
    </message>
    <message>
        <source>不认识的文件编码：%1</source>
        <translation>Unknown file encoding: %1</translation>
    </message>
    <message>
        <source>第%1行的引号没有结束，后面的内容都会被它吞掉，请检查该行的引号</source>
        <translation>The quote in line %1 is never closed and would swallow all that follows; check the quotes of that line</translation>
    </message>
    <message>
        <source>单元格%1过长</source>
        <translation>cell %1 is too long</translation>
    </message>
    <message>
        <source>临时文件夹%1无法写入或空间不足</source>
        <translation>the folder for temporary files %1 cannot be written, or is full</translation>
    </message>
    <message>
        <source>数量（股票为股、债券为张、期货为手）</source>
        <translation>quantity (shares, bonds in pieces, futures in lots)</translation>
    </message>
    <message>
        <source>价格（元，港股为港元）</source>
        <translation>price (CNY; Hong Kong shares in HKD)</translation>
    </message>
    <message>
        <source>空为不限价</source>
        <translation>empty: no limit</translation>
    </message>
    <message>
        <source>金额（元）</source>
        <translation>amount (CNY)</translation>
    </message>
    <message>
        <source>百分数，如15表示15%</source>
        <translation>per cent: 15 means 15%</translation>
    </message>
    <message>
        <source>秒</source>
        <translation>seconds</translation>
    </message>
    <message>
        <source>可带小数</source>
        <translation>may have decimals</translation>
    </message>
    <message>
        <source>与合约价格同单位，可带小数</source>
        <translation>in the unit of the contract&apos;s price, may have decimals</translation>
    </message>
    <message>
        <source>同一对证券写相同的编号</source>
        <translation>the securities of a pair have the same number</translation>
    </message>
    <message>
        <source>备注：</source>
        <translation>Notes:</translation>
    </message>
    <message>
        <source>%1、%2：%3</source>
        <translation>%1, %2: %3</translation>
    </message>
    <message>
        <source>前两格都为空的行是备注行，导入时跳过；一行一个算法实例，最多%1行（备注行计算在内）</source>
        <translation>A row whose first two cells are empty is a note and is skipped by the import; one row is one instance, and there may be %1 rows, notes included</translation>
    </message>
    <message>
        <source>示例（下一行；补上证券代码和市场后即成为一个实例，未填的列取默认值）：</source>
        <translation>Example (the next row; with a security code and a market it becomes an instance, and empty columns take their defaults):</translation>
    </message>
    <message>
        <source>必填</source>
        <translation>required</translation>
    </message>
    <message>
        <source>非必填</source>
        <translation>optional</translation>
    </message>
    <message>
        <source>非必填，以系统中的证券名称为准</source>
        <translation>optional; the name in the system counts</translation>
    </message>
    <message>
        <source>请按文本填写，保留前面的0（如000001）</source>
        <translation>write it as text, and keep leading zeros (such as 000001)</translation>
    </message>
    <message>
        <source>格式为yyyy-MM-dd HH:mm:ss</source>
        <translation>written as yyyy-MM-dd HH:mm:ss</translation>
    </message>
    <message>
        <source>默认当前时间</source>
        <translation>by default the current time</translation>
    </message>
    <message>
        <source>默认当日%1</source>
        <translation>by default today %1</translation>
    </message>
    <message>
        <source>默认%1</source>
        <translation>by default %1</translation>
    </message>
    <message>
        <source>两腿以“/”分隔，先第一腿后第二腿，如%1</source>
        <translation>both legs separated by &quot;/&quot;, the first leg first, such as %1</translation>
    </message>
    <message>
        <source>创建并立即启动</source>
        <translation>create and start</translation>
    </message>
    <message>
        <source>创建不启动</source>
        <translation>create, do not start</translation>
    </message>
    <message>
        <source>请选择列表中的值</source>
        <translation>Choose a value of the list</translation>
    </message>
    <message>
        <source>导出模板</source>
        <translation>Export template</translation>
    </message>
    <message>
        <source>算法批量导入模板-%1</source>
        <translation>algo-import-template-%1</translation>
    </message>
    <message>
        <source>以下%1个文件已存在，是否替换？
%2</source>
        <translation>These %1 files exist. Replace them?
%2</translation>
    </message>
    <message>
        <source>Excel 工作簿 (*.xlsx);;CSV 文件 (*.csv)</source>
        <translation>Excel workbook (*.xlsx);;CSV file (*.csv)</translation>
    </message>
    <message>
        <source>没有可导出的算法模板：%1</source>
        <translation>There is no template of these strategies: %1</translation>
    </message>
    <message>
        <source>算法%1的参数格式无法识别，模板未保存</source>
        <translation>The parameter format of the strategy %1 cannot be read; the template was not saved</translation>
    </message>
    <message>
        <source>模板文件的扩展名应为xlsx或csv：%1</source>
        <translation>A template&apos;s name ends in xlsx or csv: %1</translation>
    </message>
    <message>
        <source>文件夹不存在，模板未保存：%1</source>
        <translation>The folder does not exist; the template was not saved: %1</translation>
    </message>
    <message>
        <source>该名称是一个文件夹，模板未保存：%1</source>
        <translation>There is a folder of that name; the template was not saved: %1</translation>
    </message>
    <message>
        <source>文件是只读的，模板未保存：%1</source>
        <translation>The file is read-only; the template was not saved: %1</translation>
    </message>
    <message>
        <source>文件正在其他程序中打开，请关闭后重试，模板未保存：%1</source>
        <translation>The file is open in another program; close it and try again. The template was not saved: %1</translation>
    </message>
    <message>
        <source>模板未保存：%1（%2）</source>
        <translation>The template was not saved: %1 (%2)</translation>
    </message>
    <message>
        <source>没有符合筛选的行</source>
        <translation>No row matches the filter</translation>
    </message>
    <message>
        <source>消息内容</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>尚未导入</source>
        <translation>Nothing imported yet</translation>
    </message>
    <message>
        <source>%1 应为 en 或 zh，而不是“%2”</source>
        <translation>%1 takes en or zh, not &quot;%2&quot;</translation>
    </message>
    <message>
        <source>中文</source>
        <translation>English</translation>
    </message>
    <message>
        <source>语言同系统</source>
        <translation>System&apos;s language</translation>
    </message>
    <message>
        <source>下次打开窗口时使用所选语言</source>
        <translation>The window speaks it when it is opened again</translation>
    </message>
    <message>
        <source>--pace 应为大于 0 的倍数</source>
        <translation>--pace takes a factor above 0</translation>
    </message>
    <message>
        <source>请以 --reason TEXT 说明原因</source>
        <translation>--reason TEXT says why</translation>
    </message>
    <message>
        <source>check 的 --strategy CODE 与 --account ACCOUNT 应同时给出或都不给</source>
        <translation>check takes --strategy CODE and --account ACCOUNT together, or neither</translation>
    </message>
    <message>
        <source>算法，例如 AITWAP</source>
        <translation>strategy, such as AITWAP</translation>
    </message>
    <message>
        <source>交易账号</source>
        <translation>trading account</translation>
    </message>
    <message>
        <source>代替自带资料的参考数据文件夹</source>
        <translation>reference data folder instead of the shipped one</translation>
    </message>
    <message>
        <source>设置和台账所在的文件夹</source>
        <translation>folder of settings and ledger</translation>
    </message>
    <message>
        <source>代替 ALGODESK_LEDGER 或文件夹中台账的台账：文件，或 postgresql://[USER@]HOST[:PORT]/DATABASE</source>
        <translation>ledger instead of ALGODESK_LEDGER, else of the one in the home: a file, or postgresql://[USER@]HOST[:PORT]/DATABASE</translation>
    </message>
    <message>
        <source>等待其他程序改动台账的秒数（5）</source>
        <translation>for another program&apos;s change of the ledger (5)</translation>
    </message>
    <message>
        <source>对行数上限提问的回答（yes）</source>
        <translation>answer to the row-limit question (yes)</translation>
    </message>
    <message>
        <source>导入后换成该账号</source>
        <translation>choose this account after the import</translation>
    </message>
    <message>
        <source>最后按“确定”</source>
        <translation>press 确定 at the end</translation>
    </message>
    <message>
        <source>csv 文件的编码，例如 Big5，代替自动识别的</source>
        <translation>encoding of a csv file, such as Big5, instead of the one that its bytes tell</translation>
    </message>
    <message>
        <source>把未导入的行连同原因写到 OUT（xlsx 或 csv）</source>
        <translation>write the refused rows with their reasons to OUT (xlsx or csv)</translation>
    </message>
    <message>
        <source>除提示外，把文件和批次的问题也作为数据给出</source>
        <translation>tell what is wrong with the file and the batch as data, beside the messages</translation>
    </message>
    <message>
        <source>核对通过后，把确定的批次创建到台账</source>
        <translation>create the confirmed batch in the ledger, if the guard lets it pass</translation>
    </message>
    <message>
        <source>有提示也创建</source>
        <translation>create in spite of messages</translation>
    </message>
    <message>
        <source>不顾这些规则的发现而创建（不能放行“不能创建”的）；须逐条写明，没有全部同意</source>
        <translation>create in spite of what these rules found (never of a refusal); each is named, there is no yes to all</translation>
    </message>
    <message>
        <source>要求再次输入时的总金额</source>
        <translation>the gross amount, where the guard wants it typed once more</translation>
    </message>
    <message>
        <source>只限该批次</source>
        <translation>only this batch</translation>
    </message>
    <message>
        <source>暂停、恢复、拒绝或核对的原因</source>
        <translation>why it is halted, resumed, refused or settled</translation>
    </message>
    <message>
        <source>实例的结果：running、stopped、finished、rejected 或 queued</source>
        <translation>what became of an instance: running, stopped, finished, rejected or queued</translation>
    </message>
    <message>
        <source>核对没有记录被改动、删去或调换</source>
        <translation>check that no entry was changed, dropped or swapped</translation>
    </message>
    <message>
        <source>从该编号起的记录</source>
        <translation>entries from this number on</translation>
    </message>
    <message>
        <source>报告的交易日，例如 2026-11-23（今天）</source>
        <translation>exchange day of a report, such as 2026-11-23 (today)</translation>
    </message>
    <message>
        <source>同时把报告写到 OUT（xlsx 或 csv）</source>
        <translation>write the report to OUT (xlsx or csv) too</translation>
    </message>
    <message>
        <source>演示比时钟快的倍数（600）</source>
        <translation>how much faster than the clock a demonstration goes (600)</translation>
    </message>
    <message>
        <source>以文字演示，并自行结束</source>
        <translation>tell a demonstration as text, and end by itself</translation>
    </message>
    <message>
        <source>全部算法的模板</source>
        <translation>the templates of all strategies</translation>
    </message>
    <message>
        <source>命令的语言：zh（默认）或 en；窗口默认按系统语言</source>
        <translation>language: of a command zh unless asked, of the window as the system&apos;s locale</translation>
    </message>
    <message>
        <source>显示本说明</source>
        <translation>this text</translation>
    </message>
    <message>
        <source>%1 的参数应为 %2，却给了 %3 个</source>
        <translation>%1 takes %2, but was given %3 argument(s)</translation>
    </message>
    <message>
        <source>--answer 应为 yes 或 no，而不是“%1”</source>
        <translation>--answer takes yes or no, not &apos;%1&apos;</translation>
    </message>
    <message>
        <source>--wait 应为 0 到 %1 秒，而不是“%2”</source>
        <translation>--wait takes seconds from 0 to %1, not &apos;%2&apos;</translation>
    </message>
    <message>
        <source>%1 缺少取值</source>
        <translation>%1 needs a value</translation>
    </message>
    <message>
        <source>用法：algodesk                      打开交易台窗口</source>
        <translation>Usage: algodesk                     open the desk window</translation>
    </message>
    <message>
        <source>命令不需要显示环境，在标准输出上打印 JSON。退出状态：0 完成；1 有提示；2 用法错误、没有该算法或账户、参考数据有误。
check：0 无问题，1 有警告，3 有错误，4 无法读取。5 已完成，但标准输出写不进去。6 批次等待复核。</source>
        <translation>Subcommands need no display and print JSON on standard output. Exit status: 0 done, 1 a message came up,
2 wrong usage, unknown strategy or account, bad reference data. check: 0 clean, 1 warnings, 3 errors,
4 unreadable. 5 it was done, but standard output took no more. 6 the batch waits for approval.</translation>
    </message>
    <message>
        <source>选项：</source>
        <translation>Options:</translation>
    </message>
    <message>
        <source>--day 应为 yyyy-MM-dd，而不是“%1”</source>
        <translation>--day takes yyyy-MM-dd, not &apos;%1&apos;</translation>
    </message>
    <message>
        <source>--out OUT 应以 .xlsx 或 .csv 结尾</source>
        <translation>--out OUT must end in .xlsx or .csv</translation>
    </message>
    <message>
        <source>没有账户“%1”</source>
        <translation>unknown account &apos;%1&apos;</translation>
    </message>
    <message>
        <source>%1 不带参数</source>
        <translation>%1 takes no argument</translation>
    </message>
    <message>
        <source>--files 应为文件夹，且不能与 --config 或 --reset-sequence 同用</source>
        <translation>--files takes a folder, and goes with neither --config nor --reset-sequence</translation>
    </message>
    <message>
        <source>%1 需要 --%2</source>
        <translation>%1 needs --%2</translation>
    </message>
    <message>
        <source>--dry-run 应为批次号</source>
        <translation>--dry-run takes the number of a batch</translation>
    </message>
    <message>
        <source>--faults 应为随机种子</source>
        <translation>--faults takes a seed</translation>
    </message>
    <message>
        <source>--rejects OUT 应以 .xlsx 或 .csv 结尾</source>
        <translation>--rejects OUT must end in .xlsx or .csv</translation>
    </message>
    <message>
        <source>--rejects OUT 不能就是 FILE</source>
        <translation>--rejects OUT must not be FILE itself</translation>
    </message>
    <message>
        <source>import 需要 --strategy CODE 和 --account ACCOUNT</source>
        <translation>import needs --strategy CODE and --account ACCOUNT</translation>
    </message>
    <message>
        <source>--create 需要 --confirm</source>
        <translation>--create needs --confirm</translation>
    </message>
    <message>
        <source>实例以批次和行表示，例如 12-3，而不是“%1”</source>
        <translation>an instance is named by batch and row, such as 12-3, not &apos;%1&apos;</translation>
    </message>
    <message>
        <source>实例以 ID… 或 --batch N 指定</source>
        <translation>instances are named as ID…, or as --batch N</translation>
    </message>
    <message>
        <source>--as 应为 running、stopped、finished、rejected 或 queued，而不是“%1”</source>
        <translation>--as takes running, stopped, finished, rejected or queued, not &apos;%1&apos;</translation>
    </message>
    <message>
        <source>--from 应为审计记录的编号，而不是“%1”</source>
        <translation>--from takes the number of an entry, not &apos;%1&apos;</translation>
    </message>
    <message>
        <source>--verify 不能带 --from：每条记录都涵盖前一条</source>
        <translation>--verify takes no --from: every entry covers the one before</translation>
    </message>
    <message>
        <source>批次以编号表示，而不是“%1”</source>
        <translation>a batch is named by its number, not &apos;%1&apos;</translation>
    </message>
    <message>
        <source>没有命令“%1”，见 algodesk --help</source>
        <translation>unknown subcommand &apos;%1&apos;; see algodesk --help</translation>
    </message>
    <message>
        <source>无法写到标准输出：%1</source>
        <translation>cannot write to standard output: %1</translation>
    </message>
    <message>
        <source>没有算法“%1”</source>
        <translation>unknown strategy &apos;%1&apos;</translation>
    </message>
    <message>
        <source>template 需要 --strategy CODE 或 --all 之一</source>
        <translation>template needs either --strategy CODE or --all</translation>
    </message>
    <message>
        <source>OUT 应以 .xlsx 或 .csv 结尾</source>
        <translation>OUT must end in .xlsx or .csv</translation>
    </message>
    <message>
        <source>%1 不带参数，却给了 %2 个</source>
        <translation>%1 takes no argument, but was given %2</translation>
    </message>
    <message>
        <source>此前%1</source>
        <translation>before: %1</translation>
    </message>
    <message>
        <source>网关已不在</source>
        <translation>the gateway is gone</translation>
    </message>
    <message>
        <source>%1 等 %2 行</source>
        <translation>%1 and more, %2 rows</translation>
    </message>
    <message>
        <source>第 %1 列</source>
        <translation>Column %1</translation>
    </message>
    <message>
        <source>文件第 %1 行“%2”：“%3” → “%4”</source>
        <translation>Line %1 of the file, &quot;%2&quot;: &quot;%3&quot; → &quot;%4&quot;</translation>
    </message>
    <message>
        <source>粘贴 %1 格，从文件第 %2 行起</source>
        <translation>%1 cells pasted from line %2 of the file on</translation>
    </message>
    <message>
        <source>粘贴 %1 行，编为第 %2 行起</source>
        <translation>%1 rows pasted, numbered from line %2 on</translation>
    </message>
    <message>
        <source>粘贴 %1 格和 %2 行，从文件第 %3 行起</source>
        <translation>%1 cells and %2 rows pasted from line %3 of the file on</translation>
    </message>
    <message>
        <source>“%1”列中的“%2”全部改为“%3”：文件第 %4 行</source>
        <translation>All &quot;%2&quot; of the column &quot;%1&quot; became &quot;%3&quot;: line %4 of the file</translation>
    </message>
    <message>
        <source>不导入文件第 %1 行</source>
        <translation>Line %1 of the file is left out</translation>
    </message>
    <message>
        <source>恢复导入文件第 %1 行</source>
        <translation>Line %1 of the file is taken in again</translation>
    </message>
    <message>
        <source>映射要读取工作表“%1”，而读到的是“%2”</source>
        <translation>the mapping reads the sheet &quot;%1&quot;, but &quot;%2&quot; was read</translation>
    </message>
    <message>
        <source>第 %1 行没有映射所要的列：%2</source>
        <translation>line %1 lacks columns of the mapping: %2</translation>
    </message>
    <message>
        <source>文件中没有一行含有映射所要的全部列：%1</source>
        <translation>no line of the file has all columns of the mapping: %1</translation>
    </message>
    <message>
        <source>未知的值“%1”，应为 %2 之一</source>
        <translation>unknown value &quot;%1&quot;, must be one of %2</translation>
    </message>
    <message>
        <source>应为文本</source>
        <translation>must be a text</translation>
    </message>
    <message>
        <source>空文本不能作为值</source>
        <translation>an empty text is no value</translation>
    </message>
    <message>
        <source>“%1”与另一个值只差大小写或空格</source>
        <translation>&quot;%1&quot; differs from another value by case or blanks alone</translation>
    </message>
    <message>
        <source>应为非空数组</source>
        <translation>must be an array that is not empty</translation>
    </message>
    <message>
        <source>“%1”已经有一列</source>
        <translation>&quot;%1&quot; has a column already</translation>
    </message>
    <message>
        <source>“%1”已经用过</source>
        <translation>&quot;%1&quot; is used already</translation>
    </message>
    <message>
        <source>这一列已由文件给出</source>
        <translation>the file gives this column already</translation>
    </message>
    <message>
        <source>不是有效的 JSON（第 %1 字节）：%2</source>
        <translation>not valid JSON (byte %1): %2</translation>
    </message>
    <message>
        <source>映射应为一个 JSON 对象</source>
        <translation>a mapping must be a JSON object</translation>
    </message>
    <message>
        <source>映射文件过大</source>
        <translation>the mapping file is too large</translation>
    </message>
    <message>
        <source>按该映射读取 FILE，例如 check 建议的映射</source>
        <translation>tell FILE in the strategy&apos;s words by this mapping, such as check suggests</translation>
    </message>
    <message>
        <source>%1: strategy：映射属于算法“%2”，而不是“%3”</source>
        <translation>%1: strategy: the mapping is of the strategy &quot;%2&quot;, not &quot;%3&quot;</translation>
    </message>
    <message>
        <source>无法读取标准输入：%1</source>
        <translation>cannot read standard input: %1</translation>
    </message>
    <message>
        <source>%1；是否应为“%2”？</source>
        <translation>%1; did you mean &quot;%2&quot;?</translation>
    </message>
    <message>
        <source>文件中没有工作表“%1”</source>
        <translation>The file has no sheet &quot;%1&quot;</translation>
    </message>
    <message>
        <source>在算法交易台中导入时，以算法代码命名的工作表按该算法读取，几张表都填写时依次成为几个批次；其他程序只读取第一张可见的工作表</source>
        <translation>Imported by the desk, a sheet named after a strategy is read for that strategy, and several filled sheets become several batches, one after another; other programs read the first visible sheet alone</translation>
    </message>
    <message>
        <source>算法交易台 %1

批量导入算法参数，核对，经网关发往对手方。

This product includes software developed by quickfixengine.org (http://www.quickfixengine.org/).

Qt %2 (LGPL-3)、libzip (BSD-3-Clause)、libgsf (LGPL-2.1)、libxlsxwriter (BSD-2-Clause)、RapidJSON (MIT)、Expat (MIT)、QuickFIX (The QuickFIX Software License 1.0)、SQLite (public domain)、PostgreSQL libpq (PostgreSQL License)；清单见 docs/parts.md。</source>
        <translation>Algo Trading Desk %1

Imports parameters of algorithmic orders in batches, checks them and sends them to the counterparty.

This product includes software developed by quickfixengine.org (http://www.quickfixengine.org/).

Qt %2 (LGPL-3), libzip (BSD-3-Clause), libgsf (LGPL-2.1), libxlsxwriter (BSD-2-Clause), RapidJSON (MIT), Expat (MIT), QuickFIX (The QuickFIX Software License 1.0), SQLite (public domain), PostgreSQL libpq (PostgreSQL License); docs/parts.md says what each is for.</translation>
    </message>
    <message>
        <source>选择算法(&amp;T)…</source>
        <translation>&amp;Strategy…</translation>
    </message>
    <message>
        <source>填写说明(&amp;H)</source>
        <translation>&amp;Guide</translation>
    </message>
    <message>
        <source>打开一个新的批量导入 (Ctrl+N)</source>
        <translation>Open a new import (Ctrl+N)</translation>
    </message>
    <message>
        <source>预计买入金额</source>
        <translation>Expected buy</translation>
    </message>
    <message>
        <source>预计卖出金额</source>
        <translation>Expected sell</translation>
    </message>
    <message>
        <source>预计买入金额不全：有标的没有行情</source>
        <translation>Expected buy incomplete: a security has no price</translation>
    </message>
    <message>
        <source>预计卖出金额不全：有标的没有行情</source>
        <translation>Expected sell incomplete: a security has no price</translation>
    </message>
    <message>
        <source>选择文件并导入 (Ctrl+O)</source>
        <translation>Choose a file and import it (Ctrl+O)</translation>
    </message>
    <message>
        <source>把当前算法或全部算法的模板保存为文件</source>
        <translation>Save the template of this strategy, or of all, as a file</translation>
    </message>
    <message>
        <source>核对并创建这一批 (Ctrl+Enter)</source>
        <translation>Check the batch and create it (Ctrl+Enter)</translation>
    </message>
    <message>
        <source>关闭批量导入，表格中的批次不再保留</source>
        <translation>Close the import; the batch in the table is not kept</translation>
    </message>
    <message>
        <source>复制所选行；没有选择时复制全部 (Ctrl+C)</source>
        <translation>Copy the selected rows, or all where none is (Ctrl+C)</translation>
    </message>
    <message>
        <source>把列表按所见存为 csv 文件 (Ctrl+E)</source>
        <translation>Save the list as it is shown as a csv file (Ctrl+E)</translation>
    </message>
    <message>
        <source>停止全部账户的创建和发送，并要求撤销运行中的委托</source>
        <translation>Halt creation and sending for all accounts, and ask for working orders to be cancelled</translation>
    </message>
    <message>
        <source>填写说明</source>
        <translation>Guide</translation>
    </message>
    <message>
        <source>查找 (Ctrl+F)</source>
        <translation>Find (Ctrl+F)</translation>
    </message>
    <message>
        <source>在说明中查找</source>
        <translation>Find in the guide</translation>
    </message>
    <message>
        <source>收起这条通知</source>
        <translation>Put this notice away</translation>
    </message>
    <message>
        <source>输入代码或名称</source>
        <translation>Type a code or a name</translation>
    </message>
    <message>
        <source>查找算法</source>
        <translation>Find a strategy</translation>
    </message>
    <message>
        <source>找到的算法</source>
        <translation>Strategies found</translation>
    </message>
    <message>
        <source>%1（输入代码或名称查找，Ctrl+T）</source>
        <translation>%1 (type to search by code or name, Ctrl+T)</translation>
    </message>
    <message>
        <source>是(&amp;Y)</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>否(&amp;N)</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>确定(&amp;O)</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>批次 %1 属于账号 %2，不能由账号 %3 的批次替换。</source>
        <translation>Batch %1 belongs to account %2 and cannot be replaced by a batch of account %3.</translation>
    </message>
    <message>
        <source>批次 %1 %2，没有可替换的内容。</source>
        <translation>Batch %1 is %2; there is nothing to replace.</translation>
    </message>
    <message>
        <source>批次 %1 有 %2 个实例已经启动或发出（%3），不能整批替换；请先撤销该批次、核对成交，再重新创建。</source>
        <translation>%2 instances of batch %1 have been started or sent (%3), so it cannot be replaced as a whole. Undo it, check what traded, and create anew.</translation>
    </message>
    <message>
        <source>文件修改</source>
        <translation>Edits of the file</translation>
    </message>
    <message>
        <source>%1 处</source>
        <translation>%1 places</translation>
    </message>
    <message>
        <source>整批</source>
        <translation>whole batch</translation>
    </message>
    <message>
        <source>文件行</source>
        <translation>File line</translation>
    </message>
    <message>
        <source>表格行</source>
        <translation>Table row</translation>
    </message>
    <message>
        <source>规则</source>
        <translation>Rule</translation>
    </message>
    <message>
        <source>来源</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>导入</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>Confirmation</translation>
    </message>
    <message>
        <source>已排除</source>
        <translation>Left out</translation>
    </message>
    <message>
        <source>台账中已有的委托：不再创建，或只创建与 --against 的批次 N 不同的，或在同一事务中撤回该批次</source>
        <translation>of orders that the ledger holds already: leave them out, create only what differs from batch N of --against, or withdraw that batch in the same transaction</translation>
    </message>
    <message>
        <source>changed-only 和 replace 所指的批次</source>
        <translation>the batch of changed-only and replace</translation>
    </message>
    <message>
        <source>--duplicates 只能是 leave-out、changed-only 或 replace，不能是“%1”</source>
        <translation>--duplicates takes leave-out, changed-only or replace, not &quot;%1&quot;</translation>
    </message>
    <message>
        <source>--duplicates %1 需要 --against N</source>
        <translation>--duplicates %1 needs --against N</translation>
    </message>
    <message>
        <source>--against 只用于 --duplicates changed-only 或 replace</source>
        <translation>--against goes with --duplicates changed-only or replace</translation>
    </message>
    <message>
        <source>--yes、--accept、--amount、--duplicates、--against 需要 --create</source>
        <translation>--yes, --accept, --amount, --duplicates and --against need --create</translation>
    </message>
    <message>
        <source>批次 %1 的账户是 %2、算法是 %3，与本批不同，不能按变更创建。</source>
        <translation>Batch %1 has account %2 and strategy %3, unlike this one: its changes alone cannot be created.</translation>
    </message>
    <message>
        <source>没有要创建的行：%1 行都已在台账中。</source>
        <translation>There is no row to create: all %1 are in the ledger already.</translation>
    </message>
    <message>
        <source>不再创建 %1 行：台账中已有</source>
        <translation>%1 rows are not created: the ledger has them already</translation>
    </message>
    <message>
        <source>批次 %1 将被撤回，由本批替换（同时完成，或都不做）</source>
        <translation>Batch %1 is withdrawn and this one takes its place (both at once, or neither)</translation>
    </message>
    <message>
        <source>查看文件修改</source>
        <translation>Show edits</translation>
    </message>
    <message>
        <source>批次%1，没有可以撤销的实例</source>
        <translation>The batch is %1 and has no instance that could be undone</translation>
    </message>
    <message>
        <source>先选择一个批次</source>
        <translation>Select a batch first</translation>
    </message>
    <message>
        <source>导入后没有修改过文件</source>
        <translation>The file was not edited after the import</translation>
    </message>
    <message>
        <source>文件 %1（SHA-256 %2）导入后的修改：</source>
        <translation>Edits of the file %1 (SHA-256 %2) after its import:</translation>
    </message>
    <message>
        <source>批次 %1 的文件修改</source>
        <translation>Edits of the file of batch %1</translation>
    </message>
    <message>
        <source>从剪贴板导入(&amp;V)</source>
        <translation>Import from the clip&amp;board</translation>
    </message>
    <message>
        <source>重新载入文件(&amp;L)</source>
        <translation>Re&amp;load the file</translation>
    </message>
    <message>
        <source>导入多个文件(&amp;I)…</source>
        <translation>&amp;Import several files…</translation>
    </message>
    <message>
        <source>列映射(&amp;M)…</source>
        <translation>Column &amp;mapping…</translation>
    </message>
    <message>
        <source>最近的文件(&amp;T)</source>
        <translation>Recen&amp;t files</translation>
    </message>
    <message>
        <source>（无）</source>
        <translation>(none)</translation>
    </message>
    <message>
        <source>编辑(&amp;E)</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>撤销修改(&amp;U)</source>
        <translation>&amp;Undo edit</translation>
    </message>
    <message>
        <source>重做修改(&amp;R)</source>
        <translation>&amp;Redo edit</translation>
    </message>
    <message>
        <source>粘贴(&amp;P)</source>
        <translation>&amp;Paste</translation>
    </message>
    <message>
        <source>全列替换(&amp;H)…</source>
        <translation>Replace in t&amp;he column…</translation>
    </message>
    <message>
        <source>排除/恢复所选行(&amp;X)</source>
        <translation>Leave out / take in selected rows (&amp;X)</translation>
    </message>
    <message>
        <source>参数表/文件(&amp;W)</source>
        <translation>Vie&amp;w: parameters / file</translation>
    </message>
    <message>
        <source>到文件中修改(&amp;E)</source>
        <translation>Mend in the fil&amp;e</translation>
    </message>
    <message>
        <source>只看错误(&amp;O)</source>
        <translation>Err&amp;ors only</translation>
    </message>
    <message>
        <source>排除问题行(&amp;L)</source>
        <translation>&amp;Leave out faulty rows</translation>
    </message>
    <message>
        <source>文件在磁盘上已改变：%1</source>
        <translation>The file changed on disk: %1</translation>
    </message>
    <message>
        <source>重新载入</source>
        <translation>Reload</translation>
    </message>
    <message>
        <source>重新询问</source>
        <translation>Ask again</translation>
    </message>
    <message>
        <source>批次 %1 已撤回</source>
        <translation>Batch %1 is withdrawn</translation>
    </message>
    <message>
        <source>%1 行台账中已有，没有再创建</source>
        <translation>%1 rows that the ledger has already were not created again</translation>
    </message>
    <message>
        <source>批次 %1 的文件在桌面上的修改：%2</source>
        <translation>Edits of the file of batch %1 on the desk: %2</translation>
    </message>
    <message>
        <source>当前文件在桌面上的修改：%1</source>
        <translation>Edits of this file on the desk: %1</translation>
    </message>
    <message>
        <source>未提交的批次</source>
        <translation>A batch that was not submitted</translation>
    </message>
    <message>
        <source>放弃(&amp;D)</source>
        <translation>&amp;Discard</translation>
    </message>
    <message>
        <source>保留(&amp;K)</source>
        <translation>&amp;Keep</translation>
    </message>
    <message>
        <source>撤销</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>撤销上一处修改（Ctrl+Z）</source>
        <translation>Undoes the last edit (Ctrl+Z)</translation>
    </message>
    <message>
        <source>重做</source>
        <translation>Redo</translation>
    </message>
    <message>
        <source>重做撤销的修改（Ctrl+Shift+Z）</source>
        <translation>Does an undone edit again (Ctrl+Shift+Z)</translation>
    </message>
    <message>
        <source>排除/恢复行</source>
        <translation>Leave out / take in</translation>
    </message>
    <message>
        <source>所选行不导入，或恢复导入（Ctrl+-）</source>
        <translation>The selected rows are not imported, or are again (Ctrl+-)</translation>
    </message>
    <message>
        <source>全列替换…</source>
        <translation>Replace in column…</translation>
    </message>
    <message>
        <source>把当前列中的一个值全部改为另一个（Ctrl+H）</source>
        <translation>Changes a value to another one in the whole column (Ctrl+H)</translation>
    </message>
    <message>
        <source>粘贴</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>从当前单元格起粘贴；超出最后一行的成为新行（Ctrl+V）</source>
        <translation>Pastes from the current cell on; what reaches beyond the last row becomes new rows (Ctrl+V)</translation>
    </message>
    <message>
        <source>先选择从哪个单元格起粘贴</source>
        <translation>Select the cell to paste from first</translation>
    </message>
    <message>
        <source>剪贴板中没有文字</source>
        <translation>There is no text on the clipboard</translation>
    </message>
    <message>
        <source>已粘贴 %1 行</source>
        <translation>%1 rows pasted</translation>
    </message>
    <message>
        <source>粘贴没有改变任何内容</source>
        <translation>Pasting changed nothing</translation>
    </message>
    <message>
        <source>先选择要排除的行</source>
        <translation>Select the rows to leave out first</translation>
    </message>
    <message>
        <source>已恢复 %1 行</source>
        <translation>%1 rows taken in again</translation>
    </message>
    <message>
        <source>已排除 %1 行，Ctrl+Z 恢复</source>
        <translation>%1 rows left out; Ctrl+Z takes them in again</translation>
    </message>
    <message>
        <source>先选择一列中的单元格</source>
        <translation>Select a cell of the column first</translation>
    </message>
    <message>
        <source>已替换 %1 行</source>
        <translation>Replaced in %1 rows</translation>
    </message>
    <message>
        <source>文件第 %1 行 %2</source>
        <translation>File line %1 %2</translation>
    </message>
    <message>
        <source>未修改，原文件不会被写入</source>
        <translation>Not edited; the file itself is never written</translation>
    </message>
    <message>
        <source>已修改 %1 处，排除 %2 行；原文件不变</source>
        <translation>%1 edits, %2 rows left out; the file itself stays as it is</translation>
    </message>
    <message>
        <source>此行不导入</source>
        <translation>This row is not imported</translation>
    </message>
    <message>
        <source>此行不导入（Ctrl+- 恢复）</source>
        <translation>This row is not imported (Ctrl+- takes it in)</translation>
    </message>
    <message>
        <source>第 %1 行起</source>
        <translation>from row %1</translation>
    </message>
    <message>
        <source>正在读取文件…</source>
        <translation>Reading the file…</translation>
    </message>
    <message>
        <source>已按记住的映射导入：%1</source>
        <translation>Imported by the mapping that was remembered: %1</translation>
    </message>
    <message>
        <source>参数表与文件</source>
        <translation>Parameters and file</translation>
    </message>
    <message>
        <source>导入多个文件</source>
        <translation>Import several files</translation>
    </message>
    <message>
        <source>已按修改重新导入：%1</source>
        <translation>Imported again with the edits: %1</translation>
    </message>
    <message>
        <source>已按修改重新导入，请核对后再确定</source>
        <translation>Imported again with the edits; check it before you confirm</translation>
    </message>
    <message>
        <source>表格中的 %1 行尚未提交（%2）。</source>
        <translation>%1 rows in the table were not submitted (%2).</translation>
    </message>
    <message>
        <source>%1
在文件中的 %2 处修改也会丢失。</source>
        <translation>%1
%2 edits of the file are lost too.</translation>
    </message>
    <message>
        <source>没有可重新载入的文件</source>
        <translation>There is no file to reload</translation>
    </message>
    <message>
        <source>剪贴板中没有表格</source>
        <translation>There is no table on the clipboard</translation>
    </message>
    <message>
        <source>剪贴板</source>
        <translation>Clipboard</translation>
    </message>
    <message>
        <source>等待导入</source>
        <translation>Waiting for import</translation>
    </message>
    <message>
        <source>等待导入(&amp;Q)</source>
        <translation>Waiting for import (&amp;Q)</translation>
    </message>
    <message>
        <source>跳到下一个(&amp;J)</source>
        <translation>&amp;Jump to the next</translation>
    </message>
    <message>
        <source>放下当前文件，导入队列中的下一个</source>
        <translation>Leaves the current file and imports the next one that waits</translation>
    </message>
    <message>
        <source>移出(&amp;M)</source>
        <translation>Re&amp;move</translation>
    </message>
    <message>
        <source>把选中的移出队列，不导入</source>
        <translation>Takes the selected ones out of the queue; they are not imported</translation>
    </message>
    <message>
        <source>清空</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>放弃队列中的全部</source>
        <translation>Gives up everything that waits</translation>
    </message>
    <message>
        <source>%1：%2 → %3</source>
        <translation>%1: %2 → %3</translation>
    </message>
    <message>
        <source>%1：未变更，%2</source>
        <translation>%1: not changed, %2</translation>
    </message>
    <message>
        <source>启动</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>启动 %1 个实例？</source>
        <translation>Start %1 instances?</translation>
    </message>
    <message>
        <source>选中的实例没有未启动的</source>
        <translation>None of the selected instances is waiting to be started</translation>
    </message>
    <message>
        <source>启动 %1 个实例：%2</source>
        <translation>%1 instances started: %2</translation>
    </message>
    <message>
        <source>停止</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>停止 %1 个实例？</source>
        <translation>Stop %1 instances?</translation>
    </message>
    <message>
        <source>选中的实例没有待发送或在运行的</source>
        <translation>None of the selected instances is queued or running</translation>
    </message>
    <message>
        <source>停止 %1 个实例：%2</source>
        <translation>%1 instances stopped: %2</translation>
    </message>
    <message>
        <source>撤回</source>
        <translation>Withdraw</translation>
    </message>
    <message>
        <source>撤回 %1 个实例？</source>
        <translation>Withdraw %1 instances?</translation>
    </message>
    <message>
        <source>选中的实例都已发往市场或已结束，不能撤回</source>
        <translation>All selected instances went to the market or are over and cannot be withdrawn</translation>
    </message>
    <message>
        <source>撤回 %1 个实例：%2</source>
        <translation>%1 instances withdrawn: %2</translation>
    </message>
    <message>
        <source>已选 %1 个：买入 %2，卖出 %3</source>
        <translation>%1 selected: buy %2, sell %3</translation>
    </message>
    <message>
        <source>先选择实例</source>
        <translation>Select instances first</translation>
    </message>
    <message>
        <source>%1；%2 个未变更</source>
        <translation>%1; %2 not changed</translation>
    </message>
    <message>
        <source>另选中的 %1 个因状态不适用，保持不变。</source>
        <translation>%1 more of the selection stay as they are: their state does not allow it.</translation>
    </message>
    <message>
        <source>逐个实例的结果</source>
        <translation>Result for each instance</translation>
    </message>
    <message>
        <source>未变更</source>
        <translation>not changed</translation>
    </message>
    <message>
        <source>记住，表头相同的文件下次直接导入(&amp;R)</source>
        <translation>&amp;Remember: files with this header are imported at once next time</translation>
    </message>
    <message>
        <source>列映射 · %1</source>
        <translation>Column mapping · %1</translation>
    </message>
    <message>
        <source>映射后的前十行</source>
        <translation>The first ten rows as mapped</translation>
    </message>
    <message>
        <source>按此映射导入(&amp;I)</source>
        <translation>&amp;Import by this mapping</translation>
    </message>
    <message>
        <source>照原样导入(&amp;P)</source>
        <translation>Im&amp;port as it is</translation>
    </message>
    <message>
        <source>不用映射，由批量导入指出缺少的列</source>
        <translation>Without a mapping: the batch import tells which columns lack</translation>
    </message>
    <message>
        <source>导入时看到的前十行</source>
        <translation>The first ten rows as the import sees them</translation>
    </message>
    <message>
        <source>工作表(&amp;S)</source>
        <translation>&amp;Sheet</translation>
    </message>
    <message>
        <source>表头所在行(&amp;L)</source>
        <translation>&amp;Line of the header</translation>
    </message>
    <message>
        <source>表头所在行</source>
        <translation>Line of the header</translation>
    </message>
    <message>
        <source>文件的列 → 算法的列</source>
        <translation>Column of the file → column of the strategy</translation>
    </message>
    <message>
        <source>文件中的值 → 导入的值</source>
        <translation>Value in the file → value imported</translation>
    </message>
    <message>
        <source>（无标题，第 %1 列）</source>
        <translation>(no title, column %1)</translation>
    </message>
    <message>
        <source>“%1”对应的列</source>
        <translation>Column for &quot;%1&quot;</translation>
    </message>
    <message>
        <source>（不导入）</source>
        <translation>(not imported)</translation>
    </message>
    <message>
        <source>“%1”的日期次序</source>
        <translation>Order of dates of &quot;%1&quot;</translation>
    </message>
    <message>
        <source>年-月-日</source>
        <translation>year-month-day</translation>
    </message>
    <message>
        <source>日/月/年</source>
        <translation>day/month/year</translation>
    </message>
    <message>
        <source>月/日/年</source>
        <translation>month/day/year</translation>
    </message>
    <message>
        <source>%1：“%2”导入为</source>
        <translation>%1: &quot;%2&quot; is imported as</translation>
    </message>
    <message>
        <source>（保持原样）</source>
        <translation>(as it is)</translation>
    </message>
    <message>
        <source>（请选择）</source>
        <translation>(please choose)</translation>
    </message>
    <message>
        <source>所有行的%1</source>
        <translation>%1 of all rows</translation>
    </message>
    <message>
        <source>还缺：%1</source>
        <translation>Still lacking: %1</translation>
    </message>
    <message>
        <source>%1 不接受：%2</source>
        <translation>%1 does not take: %2</translation>
    </message>
    <message>
        <source>文件的各列都已对应</source>
        <translation>Every column of the file has its place</translation>
    </message>
    <message>
        <source>不导入的列：%1</source>
        <translation>Columns that are not imported: %1</translation>
    </message>
    <message>
        <source>按严重程度筛选问题（F7 只看错误）</source>
        <translation>Filter problems by severity (F7: errors only)</translation>
    </message>
    <message>
        <source>按规则筛选问题</source>
        <translation>Filter problems by rule</translation>
    </message>
    <message>
        <source>全部 %1</source>
        <translation>All %1</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>全部规则 %1</source>
        <translation>All rules %1</translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>排除问题行</source>
        <translation>Leave out faulty rows</translation>
    </message>
    <message>
        <source>把有问题的行连同原因另存为文件，改好后可直接再次导入（Ctrl+Shift+S）</source>
        <translation>Saves the faulty rows with their reasons to a file that can be mended and imported again (Ctrl+Shift+S)</translation>
    </message>
    <message>
        <source>不导入所选问题所在的行；未选多行时为所有有错误的行（Ctrl+Shift+L）。文件网格中可恢复</source>
        <translation>Does not import the rows of the selected problems; of all errors where not several are selected (Ctrl+Shift+L). The grid of the file takes them in again</translation>
    </message>
    <message>
        <source>到下一个问题（F8）；Shift+F8 到上一个，Enter 到文件中的单元格</source>
        <translation>To the next problem (F8); Shift+F8 to the one before, Enter to the cell in the file</translation>
    </message>
    <message>
        <source>没有可排除的问题行</source>
        <translation>There are no faulty rows to leave out</translation>
    </message>
    <message>
        <source>没有符合筛选的问题</source>
        <translation>No problem passes the filter</translation>
    </message>
    <message>
        <source>问题 %1 / %2：%3</source>
        <translation>Problem %1 of %2: %3</translation>
    </message>
    <message>
        <source>全列替换：%1</source>
        <translation>Replace in column: %1</translation>
    </message>
    <message>
        <source>（空）</source>
        <translation>(empty)</translation>
    </message>
    <message>
        <source>把(&amp;F)</source>
        <translation>&amp;From</translation>
    </message>
    <message>
        <source>改为(&amp;T)</source>
        <translation>&amp;To</translation>
    </message>
    <message>
        <source>替换(&amp;R)</source>
        <translation>&amp;Replace</translation>
    </message>
    <message>
        <source>与已有批次重复时</source>
        <translation>What to do with duplicates</translation>
    </message>
    <message>
        <source>全部创建，重复的逐条确认</source>
        <translation>Create all; duplicates are confirmed one by one</translation>
    </message>
    <message>
        <source>台账中已有的行不再创建</source>
        <translation>Leave out rows that the ledger has already</translation>
    </message>
    <message>
        <source>只创建与批次 %1 相比有变更的行</source>
        <translation>Create only the rows that changed against batch %1</translation>
    </message>
    <message>
        <source>撤回批次 %1，以本批替换</source>
        <translation>Withdraw batch %1 and put this one in its place</translation>
    </message>
    <message>
        <source>与已有批次重复时(&amp;D)：</source>
        <translation>Where orders are &amp;duplicates:</translation>
    </message>
    <message>
        <source>转到文件行 %1</source>
        <translation>Go to file line %1</translation>
    </message>
    <message>
        <source>列出该批次的实例</source>
        <translation>Lists the instances of the batch</translation>
    </message>
</context>
</TS>
