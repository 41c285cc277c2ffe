<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>CameraPool::CLiveImageView</name>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>The plug-in folder %1 does not exist</source>
        <translation>插件文件夹 %1 不存在</translation>
    </message>
    <message>
        <source>Plug-ins loaded from %1: %2</source>
        <translation>从 %1 加载的插件：%2</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>No Bandwidth Manager command to open</source>
        <translation>没有用于打开带宽管理器的命令</translation>
    </message>
    <message>
        <source>No camera services to grab from</source>
        <translation>没有可供采集的相机服务</translation>
    </message>
</context>
<context>
    <name>Viewer::CCameraSelectorPanel</name>
    <message>
        <source>Devices</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>No camera services</source>
        <translation>没有相机服务</translation>
    </message>
</context>
<context>
    <name>Viewer::CLiveCameraController</name>
    <message>
        <source>Could not open %1</source>
        <translation>无法打开 %1</translation>
    </message>
    <message>
        <source>Could not open %1: %2</source>
        <translation>无法打开 %1：%2</translation>
    </message>
    <message>
        <source>Could not start grabbing from %1</source>
        <translation>无法开始从 %1 采集</translation>
    </message>
    <message>
        <source>Could not start grabbing from %1: %2</source>
        <translation>无法开始从 %1 采集：%2</translation>
    </message>
    <message>
        <source>The connection to %1 was lost</source>
        <translation>与 %1 的连接已断开</translation>
    </message>
    <message>
        <source>Open camera</source>
        <translation>打开相机</translation>
    </message>
    <message>
        <source>Start grabbing</source>
        <translation>开始采集</translation>
    </message>
    <message>
        <source>Stop grabbing</source>
        <translation>停止采集</translation>
    </message>
    <message>
        <source>Close camera</source>
        <translation>关闭相机</translation>
    </message>
</context>
<context>
    <name>Viewer::CMainWindow</name>
    <message>
        <source>Zenta Viewer</source>
        <translation>Zenta Viewer</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Refresh cameras</source>
        <translation>刷新相机</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About Zenta Viewer</source>
        <translation>关于 Zenta Viewer(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>Problem Assistant</source>
        <translation>问题助手</translation>
    </message>
    <message>
        <source>Select a camera in the device list.</source>
        <translation>请在设备列表中选择相机。</translation>
    </message>
    <message>
        <source>%1
%2 camera
%3</source>
        <translation>%1
%2 相机
%3</translation>
    </message>
    <message>
        <source>About Zenta Viewer</source>
        <translation>关于 Zenta Viewer</translation>
    </message>
    <message>
        <source>Zenta Viewer %1
A viewer for industrial cameras, extended by plug-ins.</source>
        <translation>Zenta Viewer %1
可通过插件扩展功能的工业相机查看器。</translation>
    </message>
</context>
<context>
    <name>Viewer::CMessageLogPanel</name>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
</context>
<context>
    <name>Viewer::CMessageLogService</name>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>Failure</source>
        <translation>故障</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Severity</source>
        <translation>严重性</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>来源</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
</context>
<context>
    <name>Viewer::CProblemAssistantPanel</name>
    <message>
        <source>No solution is known for this problem.</source>
        <translation>此问题没有已知的解决方法。</translation>
    </message>
</context>
<context>
    <name>Viewer::CProblemAssistantService</name>
    <message>
        <source>Camera not found</source>
        <translation>找不到相机</translation>
    </message>
    <message>
        <source>The camera does not appear in the list of devices.</source>
        <translation>相机未出现在设备列表中。</translation>
    </message>
    <message>
        <source>Camera cannot be opened</source>
        <translation>无法打开相机</translation>
    </message>
    <message>
        <source>The camera is listed but another program or host holds it.</source>
        <translation>相机已列出，但正被其他程序或主机占用。</translation>
    </message>
    <message>
        <source>Images are lost</source>
        <translation>图像丢失</translation>
    </message>
    <message>
        <source>Frames of a network camera arrive incomplete or not at all.</source>
        <translation>网络相机的帧到达时不完整，或根本没有到达。</translation>
    </message>
    <message>
        <source>Frame rate lower than expected</source>
        <translation>帧率低于预期</translation>
    </message>
    <message>
        <source>The camera sends fewer images than it was set to.</source>
        <translation>相机发送的图像少于设定的数量。</translation>
    </message>
    <message>
        <source>Many packets are resent</source>
        <translation>大量数据包被重发</translation>
    </message>
    <message>
        <source>The network adapter asks the camera to resend often.</source>
        <translation>网络适配器频繁要求相机重发。</translation>
    </message>
    <message>
        <source>The adapter drops packets</source>
        <translation>适配器丢弃数据包</translation>
    </message>
    <message>
        <source>The receive buffers of the network adapter overflow.</source>
        <translation>网络适配器的接收缓冲区溢出。</translation>
    </message>
    <message>
        <source>Link bandwidth exhausted</source>
        <translation>链路带宽耗尽</translation>
    </message>
    <message>
        <source>The cameras on one link need more than it carries.</source>
        <translation>同一链路上的相机所需带宽超出了该链路的承载能力。</translation>
    </message>
    <message>
        <source>USB camera is slow</source>
        <translation>USB 相机速度慢</translation>
    </message>
    <message>
        <source>A USB camera delivers less than its link allows.</source>
        <translation>USB 相机的传输量低于其链路允许的值。</translation>
    </message>
    <message>
        <source>USB bandwidth exhausted</source>
        <translation>USB 带宽耗尽</translation>
    </message>
    <message>
        <source>The cameras on one USB controller need more than it carries.</source>
        <translation>同一 USB 控制器上的相机所需带宽超出了该控制器的承载能力。</translation>
    </message>
    <message>
        <source>USB camera runs at USB 2 speed</source>
        <translation>USB 相机以 USB 2 速度运行</translation>
    </message>
    <message>
        <source>The camera is connected through a USB 2 port or cable.</source>
        <translation>相机通过 USB 2 端口或线缆连接。</translation>
    </message>
</context>
</TS>
