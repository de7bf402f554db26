<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>save successful</source>
        <translation>保存しました</translation>
    </message>
    <message>
        <source>busy, please wait</source>
        <translation>処理中です。お待ちください</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>確認</translation>
    </message>
    <message>
        <source>About to autosave, whether to continue?</source>
        <translation>変更を保存します。続行しますか？</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>番号</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>error, not available</source>
        <translation>エラー：利用できません</translation>
    </message>
    <message>
        <source>add success</source>
        <translation>追加しました</translation>
    </message>
    <message>
        <source>add error</source>
        <translation>追加に失敗しました</translation>
    </message>
    <message>
        <source>del success</source>
        <translation>削除しました</translation>
    </message>
    <message>
        <source>del error</source>
        <translation>削除に失敗しました</translation>
    </message>
</context>
</TS>
