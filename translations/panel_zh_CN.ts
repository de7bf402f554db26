<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>OnScreenKeyboard</name>
    <message>
        <source>The screen is small: keys are only %1 mm.</source>
        <translation>屏幕较小：按键仅 %1 毫米。</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>请输入数字。</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>这不是数字。</translation>
    </message>
    <message>
        <source>Only whole numbers are possible.</source>
        <translation>只能输入整数。</translation>
    </message>
    <message>
        <source>Digits after the point: %1 at most.</source>
        <translation>小数位数最多 %1 位。</translation>
    </message>
    <message>
        <source>Too many digits.</source>
        <translation>位数过多。</translation>
    </message>
    <message>
        <source>Too small: the smallest value is %1.</source>
        <translation>数值过小：最小值为 %1。</translation>
    </message>
    <message>
        <source>Too large: the largest value is %1.</source>
        <translation>数值过大：最大值为 %1。</translation>
    </message>
    <message>
        <source>Too long: the greatest length is %1.</source>
        <translation>文本过长：最多 %1 个字符。</translation>
    </message>
    <message>
        <source>No value is possible: the limits are %1 to %2.</source>
        <translation>没有可用的值：限值为 %1 至 %2。</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>数值</translation>
    </message>
    <message>
        <source>Old: %1</source>
        <translation>原值：%1</translation>
    </message>
    <message>
        <source>Length: up to %1</source>
        <translation>长度：最多 %1</translation>
    </message>
    <message>
        <source>Min: %1</source>
        <translation>最小：%1</translation>
    </message>
    <message>
        <source>Max: %1</source>
        <translation>最大：%1</translation>
    </message>
    <message>
        <source>CLR</source>
        <comment>key that clears the whole entry, three letters</comment>
        <translation>清除</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>PanelSession</name>
    <message>
        <source>Changes that are not saved were not sent.</source>
        <translation>未保存的更改没有发送。</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>RecipeTransfer</name>
    <message>
        <source>%1 Nothing was sent.</source>
        <translation>%1未发送任何内容。</translation>
    </message>
    <message>
        <source>Recipes are being added or deleted; try again in a moment.</source>
        <translation>正在添加或删除配方，请稍后再试。</translation>
    </message>
    <message>
        <source>No plug-in that is loaded can load recipes.</source>
        <translation>已加载的插件都不能读取配方。</translation>
    </message>
    <message>
        <source>No recipe is selected.</source>
        <translation>没有选择配方。</translation>
    </message>
    <message>
        <source>It is not known of which group the recipe is; tap the recipe.</source>
        <translation>不知道配方属于哪个组；请点击该配方。</translation>
    </message>
    <message>
        <source>Group %1 cannot be read from the recipe file.</source>
        <translation>无法从配方文件读取组 %1。</translation>
    </message>
    <message>
        <source>Group %1 has no items.</source>
        <translation>组 %1 没有项目。</translation>
    </message>
    <message>
        <source>Group %1 has no recipe %2.</source>
        <translation>组 %1 没有配方 %2。</translation>
    </message>
    <message>
        <source>Recipe %1</source>
        <translation>配方 %1</translation>
    </message>
    <message>
        <source>Item %1</source>
        <translation>项目 %1</translation>
    </message>
    <message>
        <source>%1 has no value.</source>
        <translation>%1 没有值。</translation>
    </message>
    <message>
        <source>The recipe file holds &quot;%1&quot; more than once.</source>
        <translation>配方文件中多次出现“%1”。</translation>
    </message>
    <message>
        <source>%1 has the data type %2, which is not known.</source>
        <translation>%1 的数据类型 %2 未知。</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number.</source>
        <translation>%1：“%2”不是数字。</translation>
    </message>
    <message>
        <source>%1: %2 has too many decimals.</source>
        <translation>%1：%2 的小数位过多。</translation>
    </message>
    <message>
        <source>%1: %2 does not fit into its register.</source>
        <translation>%1：%2 超出其寄存器的范围。</translation>
    </message>
    <message>
        <source>%1: the text &quot;%2&quot; is longer than %3 bytes.</source>
        <translation>%1：文本“%2”超过 %3 个字节。</translation>
    </message>
    <message>
        <source>%1 has no room among the registers of the recipe.</source>
        <translation>%1 在配方的寄存器中没有位置。</translation>
    </message>
    <message>
        <source>Notification</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>%1 has no register address.</source>
        <translation>%1 没有寄存器地址。</translation>
    </message>
    <message>
        <source>%1: there is no link to &quot;%2&quot;.</source>
        <translation>%1：没有到“%2”的连接。</translation>
    </message>
    <message>
        <source>The link to &quot;%1&quot; is down.</source>
        <translation>到“%1”的连接已断开。</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no register %3 %4.</source>
        <translation>%1：“%2”没有寄存器 %3 %4。</translation>
    </message>
    <message>
        <source>%1 and %2 share the register %3 %4.</source>
        <translation>%1 和 %2 共用寄存器 %3 %4。</translation>
    </message>
    <message>
        <source>The controller does not answer.</source>
        <translation>控制器没有应答。</translation>
    </message>
    <message>
        <source>Sent to the controller: %1</source>
        <translation>已发送到控制器：%1</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>Selected group</source>
        <translation>所选配方组</translation>
    </message>
    <message>
        <source>Selected recipe</source>
        <translation>所选配方</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>A register needs a type, such as LW.</source>
        <translation>寄存器需要类型，例如 LW。</translation>
    </message>
    <message>
        <source>%1 %2 cannot be written.</source>
        <translation>无法写入 %1 %2。</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>监视</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
</context>
<context>
    <name>TransferBox</name>
    <message>
        <source>Send to controller (F9)</source>
        <translation>发送到控制器 (F9)</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <translation>到 %1 的连接</translation>
    </message>
</context>
</TS>
