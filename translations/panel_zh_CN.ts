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
</TS>
