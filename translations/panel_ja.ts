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
    <name>PanelSession</name>
    <message>
        <source>Changes that are not saved were not sent.</source>
        <translation>保存されていない変更は送信されていません。</translation>
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
    <name>RecipeTransfer</name>
    <message>
        <source>%1 Nothing was sent.</source>
        <translation>%1何も送信されていません。</translation>
    </message>
    <message>
        <source>Recipes are being added or deleted; try again in a moment.</source>
        <translation>レシピを追加または削除中です。少し待ってからやり直してください。</translation>
    </message>
    <message>
        <source>No plug-in that is loaded can load recipes.</source>
        <translation>読み込まれたプラグインにはレシピを読めるものがありません。</translation>
    </message>
    <message>
        <source>No recipe is selected.</source>
        <translation>レシピが選択されていません。</translation>
    </message>
    <message>
        <source>It is not known of which group the recipe is; tap the recipe.</source>
        <translation>レシピのグループが分かりません。レシピをタッチしてください。</translation>
    </message>
    <message>
        <source>Group %1 cannot be read from the recipe file.</source>
        <translation>レシピファイルからグループ %1 を読み込めません。</translation>
    </message>
    <message>
        <source>Group %1 has no items.</source>
        <translation>グループ %1 には項目がありません。</translation>
    </message>
    <message>
        <source>Group %1 has no recipe %2.</source>
        <translation>グループ %1 にレシピ %2 はありません。</translation>
    </message>
    <message>
        <source>Recipe %1</source>
        <translation>レシピ %1</translation>
    </message>
    <message>
        <source>Item %1</source>
        <translation>項目 %1</translation>
    </message>
    <message>
        <source>%1 has no value.</source>
        <translation>%1 に値がありません。</translation>
    </message>
    <message>
        <source>The recipe file holds &quot;%1&quot; more than once.</source>
        <translation>レシピファイルに「%1」が複数あります。</translation>
    </message>
    <message>
        <source>%1 has the data type %2, which is not known.</source>
        <translation>%1 のデータ型 %2 は不明です。</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number.</source>
        <translation>%1：「%2」は数値ではありません。</translation>
    </message>
    <message>
        <source>%1: %2 has too many decimals.</source>
        <translation>%1：%2 の小数桁が多すぎます。</translation>
    </message>
    <message>
        <source>%1: %2 does not fit into its register.</source>
        <translation>%1：%2 はレジスタに入りません。</translation>
    </message>
    <message>
        <source>%1: the text &quot;%2&quot; is longer than %3 bytes.</source>
        <translation>%1：テキスト「%2」は %3 バイトを超えています。</translation>
    </message>
    <message>
        <source>%1 has no room among the registers of the recipe.</source>
        <translation>レシピのレジスタに %1 の場所がありません。</translation>
    </message>
    <message>
        <source>Notification</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>%1 has no register address.</source>
        <translation>%1 にレジスタアドレスがありません。</translation>
    </message>
    <message>
        <source>%1: there is no link to &quot;%2&quot;.</source>
        <translation>%1：「%2」への接続がありません。</translation>
    </message>
    <message>
        <source>The link to &quot;%1&quot; is down.</source>
        <translation>「%1」への接続が切れています。</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no register %3 %4.</source>
        <translation>%1：「%2」にレジスタ %3 %4 はありません。</translation>
    </message>
    <message>
        <source>%1 and %2 share the register %3 %4.</source>
        <translation>%1 と %2 が同じレジスタ %3 %4 を使っています。</translation>
    </message>
    <message>
        <source>The controller does not answer.</source>
        <translation>コントローラーが応答しません。</translation>
    </message>
    <message>
        <source>Sent to the controller: %1</source>
        <translation>コントローラーに送信しました：%1</translation>
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
<context>
    <name>TransferBox</name>
    <message>
        <source>Send to controller (F9)</source>
        <translation>コントローラーに送信 (F9)</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <translation>%1 への接続</translation>
    </message>
</context>
</TS>
