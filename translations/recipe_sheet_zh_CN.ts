<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>save successful</source>
        <translation>保存成功</translation>
    </message>
    <message>
        <source>busy, please wait</source>
        <translation>正忙，请稍候</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>About to autosave, whether to continue?</source>
        <translation>即将自动保存，是否继续？</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>序号</translation>
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
        <translation>添加</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>error, not available</source>
        <translation>错误：不可用</translation>
    </message>
    <message>
        <source>add success</source>
        <translation>添加成功</translation>
    </message>
    <message>
        <source>add error</source>
        <translation>添加失败</translation>
    </message>
    <message>
        <source>del success</source>
        <translation>删除成功</translation>
    </message>
    <message>
        <source>del error</source>
        <translation>删除失败</translation>
    </message>
</context>
</TS>
