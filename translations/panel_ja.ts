<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>OnScreenKeyboard</name>
    <message>
        <source>The screen is small: keys are only %1 mm.</source>
        <translation>画面が小さいため、キーは %1 mm です。</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>数値を入力してください。</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>数値ではありません。</translation>
    </message>
    <message>
        <source>Only whole numbers are possible.</source>
        <translation>整数のみ入力できます。</translation>
    </message>
    <message>
        <source>Digits after the point: %1 at most.</source>
        <translation>小数点以下は %1 桁までです。</translation>
    </message>
    <message>
        <source>Too many digits.</source>
        <translation>桁数が多すぎます。</translation>
    </message>
    <message>
        <source>Too small: the smallest value is %1.</source>
        <translation>小さすぎます。最小値は %1 です。</translation>
    </message>
    <message>
        <source>Too large: the largest value is %1.</source>
        <translation>大きすぎます。最大値は %1 です。</translation>
    </message>
    <message>
        <source>Too long: the greatest length is %1.</source>
        <translation>長すぎます。最大 %1 文字です。</translation>
    </message>
    <message>
        <source>No value is possible: the limits are %1 to %2.</source>
        <translation>入力できる値がありません。範囲は %1～%2 です。</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Old: %1</source>
        <translation>変更前：%1</translation>
    </message>
    <message>
        <source>Length: up to %1</source>
        <translation>長さ：最大 %1</translation>
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
        <translation>消去</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>確定</translation>
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
        <translation>はい</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>Selected group</source>
        <translation>選択中のグループ</translation>
    </message>
    <message>
        <source>Selected recipe</source>
        <translation>選択中のレシピ</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>アドレス</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>A register needs a type, such as LW.</source>
        <translation>レジスタの種類（LW など）を入力してください。</translation>
    </message>
    <message>
        <source>%1 %2 cannot be written.</source>
        <translation>%1 %2 に書き込めません。</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>監視</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
</context>
</TS>
