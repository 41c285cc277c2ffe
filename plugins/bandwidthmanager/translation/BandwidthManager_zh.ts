<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>BandwidthCameraConfigureDialog</name>
    <message>
        <source>Features %1</source>
        <translation>功能 %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>配置</translation>
    </message>
</context>
<context>
    <name>BandwidthDialog</name>
    <message>
        <source>Bandwidth Manager</source>
        <translation>带宽管理器</translation>
    </message>
    <message>
        <source>&lt;p&gt;zenta has detected one or more GigE camera(s).The transport layer settings &lt;strong&gt;Inter-Packet Delay&lt;/strong&gt; and &lt;strong&gt;Packet Size&lt;/strong&gt; can have an impact on the performance of your GigE camera(s).&lt;/p&gt;&lt;p&gt;To automatically optimize these settings for all cameras in your environment, click the &lt;strong&gt;Optimize GigE Bandwidth&lt;/strong&gt; button in this dialog.This ensures optimum performance of your GigE cameras.&lt;/p&gt;</source>
        <translation>&lt;p&gt;zenta 检测到一台或多台 GigE 相机。传输层设置&lt;strong&gt;包间延迟&lt;/strong&gt;和&lt;strong&gt;数据包大小&lt;/strong&gt;可能会影响 GigE 相机的性能。&lt;/p&gt;&lt;p&gt;要为您环境中的所有相机自动优化这些设置，请单击此对话框中的&lt;strong&gt;优化 GigE 带宽&lt;/strong&gt;按钮。这样可以确保 GigE 相机达到最佳性能。&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Optimize GigE Bandwidth</source>
        <translation>优化 GigE 带宽</translation>
    </message>
    <message>
        <source>Stop Bandwidth analysis.</source>
        <translation>停止带宽分析。</translation>
    </message>
    <message>
        <source>Bandwidth analysis has been started.</source>
        <translation>带宽分析已开始。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt;, &lt;b&gt;Inter-Packet Delay&lt;/b&gt; and &lt;b&gt;Frame Transmission Delay&lt;/b&gt; settings have been optimized.</source>
        <translation>&lt;b&gt;数据包大小&lt;/b&gt;、&lt;b&gt;包间延迟&lt;/b&gt;和&lt;b&gt;帧传输延迟&lt;/b&gt;设置已优化。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt; and &lt;b&gt;Inter-Packet Delay&lt;/b&gt; settings has been optimized.</source>
        <translation>&lt;b&gt;数据包大小&lt;/b&gt;和&lt;b&gt;包间延迟&lt;/b&gt;设置已优化。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt; and &lt;b&gt;Frame Transmission Delay&lt;/b&gt; settings has been optimized.</source>
        <translation>&lt;b&gt;数据包大小&lt;/b&gt;和&lt;b&gt;帧传输延迟&lt;/b&gt;设置已优化。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt; setting has been optimized</source>
        <translation>&lt;b&gt;数据包大小&lt;/b&gt;设置已优化。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Inter-Packet Delay&lt;/b&gt; and &lt;b&gt;Frame Transmission Delay&lt;/b&gt; settings has been optimized.</source>
        <translation>&lt;b&gt;包间延迟&lt;/b&gt;和&lt;b&gt;帧传输延迟&lt;/b&gt;设置已优化。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Inter-Packet Delay&lt;/b&gt; setting has been optimized</source>
        <translation>&lt;b&gt;包间延迟&lt;/b&gt;设置已优化。</translation>
    </message>
    <message>
        <source>&lt;br&gt;These cameras did not answer and could not be set: %1</source>
        <translation>&lt;br&gt;以下相机没有响应，无法设置：%1</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Frame Transmission Delay&lt;/b&gt; setting has been optimized</source>
        <translation>&lt;b&gt;帧传输延迟&lt;/b&gt;设置已优化。</translation>
    </message>
    <message>
        <source>Settings have been checked and are ok. No changes have been made.</source>
        <translation>已检查设置，设置正常。未进行任何更改。</translation>
    </message>
    <message>
        <source>&lt;br&gt;The &lt;b&gt;Packet Size&lt;/b&gt; setting has been increased to its maximum value. If you want to increase performance further, enable jumbo frames on your network adapter.</source>
        <translation>&lt;br&gt;&lt;b&gt;数据包大小&lt;/b&gt;设置已提高到最大值。如需进一步提高性能，请在网络适配器上启用巨型帧。</translation>
    </message>
    <message>
        <source>&lt;br&gt;Currently, there are too many cameras connected to your network adapter. The Bandwidth Manager can&apos;t optimize the performance under these conditions. Try disconnecting one or more cameras to resolve this.</source>
        <translation>&lt;br&gt;当前连接到网络适配器的相机过多。在这种情况下，带宽管理器无法优化性能。请尝试断开一台或多台相机来解决此问题。</translation>
    </message>
    <message>
        <source>&lt;br&gt;The &lt;b&gt;Packet Size&lt;/b&gt; setting could not be optimized. A default value of 1500 has been set.</source>
        <translation>&lt;br&gt;无法优化&lt;b&gt;数据包大小&lt;/b&gt;设置。已设置默认值 1500。</translation>
    </message>
    <message>
        <source>All GigE cameras are being optimized.</source>
        <translation>正在优化所有 GigE 相机。</translation>
    </message>
    <message>
        <source>Selected GigE cameras are being optimized.</source>
        <translation>正在优化所选的 GigE 相机。</translation>
    </message>
    <message>
        <source>No camera connected!&lt;br/&gt;Connect at least one USB camera to the computer. After the camera has been detected by the zenta Viewer, you are ready to use the Bandwidth Manager.</source>
        <translation>未连接相机！&lt;br/&gt;请将至少一台 USB 相机连接到计算机。zenta Viewer 检测到相机后，即可使用带宽管理器。</translation>
    </message>
    <message>
        <source>Analyzing bandwidth.&lt;br/&gt;You can limit the amount of bandwidth used by a camera using the controls in the &lt;b&gt;Bandwidth (MB/s)&lt;/b&gt; column.&lt;br/&gt;Click &lt;b&gt;Stop Analysis&lt;/b&gt; to stop the analysis.</source>
        <translation>正在分析带宽。&lt;br/&gt;您可以使用&lt;b&gt;带宽 (MB/s)&lt;/b&gt;列中的控件限制相机使用的带宽。&lt;br/&gt;单击&lt;b&gt;停止分析&lt;/b&gt;可停止分析。</translation>
    </message>
    <message>
        <source>&lt;br/&gt;&lt;br/&gt;&lt;b&gt;No camera is being measured.&lt;/b&gt; A camera lost during the analysis is measured again when it comes back.</source>
        <translation>&lt;br/&gt;&lt;br/&gt;&lt;b&gt;没有正在测量的相机。&lt;/b&gt; 分析期间丢失的相机重新连接后将再次被测量。</translation>
    </message>
    <message>
        <source>B/s</source>
        <translation>B/s</translation>
    </message>
    <message>
        <source>The current value for &lt;b&gt;%1&lt;/b&gt; is: &lt;b&gt;%2&lt;/b&gt; (%3)&lt;br/&gt;Tip: If you want to preserve the current camera settings, save them to a user set.</source>
        <translation>&lt;b&gt;%1&lt;/b&gt; 的当前值为：&lt;b&gt;%2&lt;/b&gt; (%3)&lt;br/&gt;提示：如需保留当前相机设置，请将其保存到用户集。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Bandwidth (MB/s)&lt;/b&gt; value of GigE cameras shows the approximate bandwidth that is available for the individual network adapter. It is influenced by the &lt;b&gt;Inter-Packet Delay&lt;/b&gt; and &lt;b&gt;Packet Size&lt;/b&gt; settings in the &lt;b&gt;Transport Layer&lt;/b&gt; category.&lt;br/&gt;If you enable jumbo frames on your network adapter and increase the packet size of your camera you can increase the overall performance of your system.&lt;br/&gt;&lt;br/&gt;The &lt;b&gt;Bandwidth (MB/s)&lt;/b&gt; value of USB cameras corresponds to the &lt;b&gt;Device Link Throughput Limit&lt;/b&gt; value in the &lt;b&gt;Device Control&lt;/b&gt; category.&lt;br/&gt;&lt;br/&gt;Select the cameras whose bandwidth you want to analyze.&lt;br/&gt;Click &lt;b&gt;Start Analysis&lt;/b&gt; to start the analysis.&lt;br/&gt;&lt;br/&gt;Tip: If you want to preserve the current camera settings, save them to a user set.&lt;br/&gt;</source>
        <translation>GigE 相机的&lt;b&gt;带宽 (MB/s)&lt;/b&gt;值表示各个网络适配器可用的大致带宽。该值受&lt;b&gt;传输层&lt;/b&gt;类别中&lt;b&gt;包间延迟&lt;/b&gt;和&lt;b&gt;数据包大小&lt;/b&gt;设置的影响。&lt;br/&gt;如果在网络适配器上启用巨型帧并增大相机的数据包大小，可以提高系统的整体性能。&lt;br/&gt;&lt;br/&gt;USB 相机的&lt;b&gt;带宽 (MB/s)&lt;/b&gt;值对应于&lt;b&gt;设备控制&lt;/b&gt;类别中的&lt;b&gt;设备链路吞吐量限制&lt;/b&gt;值。&lt;br/&gt;&lt;br/&gt;请选择要分析带宽的相机。&lt;br/&gt;单击&lt;b&gt;开始分析&lt;/b&gt;开始分析。&lt;br/&gt;&lt;br/&gt;提示：如需保留当前相机设置，请将其保存到用户集。&lt;br/&gt;</translation>
    </message>
    <message>
        <source>Software trigger enabled on %1!</source>
        <translation>%1 已启用软件触发！</translation>
    </message>
    <message>
        <source>Hardware trigger enabled on %1!</source>
        <translation>%1 已启用硬件触发！</translation>
    </message>
    <message>
        <source>Headers will be added by widgetcode</source>
        <translation>表头将由控件代码添加</translation>
    </message>
    <message>
        <source>&amp;Reset Statistics</source>
        <translation>重置统计(&amp;R)</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Hint Text&lt;br/&gt;Row 2&lt;br/&gt;Row 3&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;提示文本&lt;br/&gt;第 2 行&lt;br/&gt;第 3 行&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Stop analysis &amp;after</source>
        <translation>在设定时间后停止分析(&amp;A)</translation>
    </message>
    <message>
        <source>Second(s)</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>Minute(s)</source>
        <translation>分钟</translation>
    </message>
    <message>
        <source>Hour(s)</source>
        <translation>小时</translation>
    </message>
    <message>
        <source>Day(s)</source>
        <translation>天</translation>
    </message>
    <message>
        <source>&amp;Start Analysis</source>
        <translation>开始分析(&amp;S)</translation>
    </message>
    <message>
        <source>S&amp;top Analysis</source>
        <translation>停止分析(&amp;T)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Export Analysis</source>
        <translation>导出分析</translation>
    </message>
    <message>
        <source>Analysis report (*.json)</source>
        <translation>分析报告 (*.json)</translation>
    </message>
    <message>
        <source>The analysis has been saved to %1 and %2.</source>
        <translation>分析已保存到 %1 和 %2。</translation>
    </message>
    <message>
        <source>The analysis could not be saved: %1</source>
        <translation>无法保存分析: %1</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>导出(&amp;X)...</translation>
    </message>
    <message>
        <source>Link use %1 % (highest %2 %)
Receive errors since the start: missed %3, FIFO %4, dropped %5</source>
        <translation>链路使用率 %1 %(最高 %2 %)
开始以来的接收错误: missed %3, FIFO %4, dropped %5</translation>
    </message>
    <message>
        <source>Since the start:
packets missing after resends: %1
packets resent: %2
resend requests: %3
frames without a free buffer: %4
packets dropped by the stream socket: %5</source>
        <translation>开始以来:
重发后仍丢失的数据包: %1
重发的数据包: %2
重发请求: %3
没有空闲缓冲区的帧: %4
流套接字丢弃的数据包: %5</translation>
    </message>
    <message>
        <source>%1 host check(s) found something to change.</source>
        <translation>%1 项主机检查发现需要更改之处。</translation>
    </message>
    <message>
        <source>Check &amp;Host...</source>
        <translation>检查主机(&amp;H)...</translation>
    </message>
</context>
<context>
    <name>BandwidthLimiterInterPacketDelay</name>
    <message>
        <source>MB/s</source>
        <translation>MB/s</translation>
    </message>
</context>
<context>
    <name>BandwidthTreeWidget</name>
    <message>
        <source>Camera</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>Bandwidth (MB/s)</source>
        <translation>带宽 (MB/s)</translation>
    </message>
    <message>
        <source>Payload Received (MB/s)</source>
        <translation>已接收有效载荷 (MB/s)</translation>
    </message>
    <message>
        <source>fps Sent</source>
        <translation>发送 fps</translation>
    </message>
    <message>
        <source>fps Received</source>
        <translation>接收 fps</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>图像数</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>错误数</translation>
    </message>
    <message>
        <source>Optimize</source>
        <translation>优化</translation>
    </message>
    <message>
        <source>Optimizes transport layer settings of cameras connected to this network adapter.</source>
        <translation>优化连接到此网络适配器的相机的传输层设置。</translation>
    </message>
    <message>
        <source>Error accessing camera!</source>
        <translation>访问相机时出错！</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>连接已断开</translation>
    </message>
</context>
<context>
    <name>CameraConfigurationEditor</name>
    <message>
        <source>Invalid!</source>
        <translation>无效！</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Configure Camera</source>
        <translation>配置相机</translation>
    </message>
</context>
<context>
    <name>ComboSlider</name>
    <message>
        <source>Range: %1..%2</source>
        <translation>范围：%1..%2</translation>
    </message>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>范围：%1..%2（增量：%3）</translation>
    </message>
</context>
<context>
    <name>FlatTree</name>
    <message>
        <source>Internal Error</source>
        <translation>内部错误</translation>
    </message>
    <message>
        <source>Network Interface</source>
        <translation>网络接口</translation>
    </message>
    <message>
        <source>Could not start grab.</source>
        <translation>无法开始采集。</translation>
    </message>
</context>
<context>
    <name>HostChecks</name>
    <message>
        <source>net.core.rmem_max cannot be read.</source>
        <translation>无法读取 net.core.rmem_max。</translation>
    </message>
    <message>
        <source>net.core.rmem_max is %1 KiB: enough for the streams.</source>
        <translation>net.core.rmem_max 为 %1 KiB,足够流使用。</translation>
    </message>
    <message>
        <source>net.core.rmem_max is %1 KiB, less than the %2 KiB a stream asks for: its packets are lost whenever the stream thread is late.</source>
        <translation>net.core.rmem_max 为 %1 KiB,小于流所请求的 %2 KiB:每当流线程延迟时都会丢失数据包。</translation>
    </message>
    <message>
        <source>%1 has no receive ring to set.</source>
        <translation>%1 没有可设置的接收环。</translation>
    </message>
    <message>
        <source>%1: the receive ring is at its maximum, %2.</source>
        <translation>%1: 接收环已为最大值 %2。</translation>
    </message>
    <message>
        <source>%1: the receive ring holds %2 packets of up to %3: a burst of the cameras overflows it.</source>
        <translation>%1: 接收环仅容纳 %2 个数据包(最多 %3):相机的突发流量会使其溢出。</translation>
    </message>
    <message>
        <source>%1: MTU %2, as large as its cameras&apos; packets can use.</source>
        <translation>%1: MTU %2,足以容纳其相机的数据包。</translation>
    </message>
    <message>
        <source>%1: MTU %2, while its cameras could send packets of %3 bytes: jumbo frames (%4) carry a frame in fewer packets, with less load on the host.</source>
        <translation>%1: MTU 为 %2,而其相机可发送 %3 字节的数据包:巨型帧 (%4) 用更少的数据包传输一帧,减轻主机负载。</translation>
    </message>
    <message>
        <source>%1: reverse-path filtering is not strict.</source>
        <translation>%1: 反向路径过滤不是严格模式。</translation>
    </message>
    <message>
        <source>%1: strict reverse-path filtering drops the packets of a camera whose address the host would not route back through this adapter (discovery answers, streams from another subnet).</source>
        <translation>%1: 严格的反向路径过滤会丢弃主机不会经此适配器回送的地址的相机数据包(发现应答、来自其他子网的流)。</translation>
    </message>
    <message>
        <source>%1: interrupt moderation suits %2 packets a second.</source>
        <translation>%1: 中断调节适合每秒 %2 个数据包。</translation>
    </message>
    <message>
        <source>%1 takes an interrupt for each of %2 packets a second: with moderation off, the host spends its time in interrupts.</source>
        <translation>%1 每秒 %2 个数据包中的每一个都触发中断:关闭调节时,主机把时间花在中断上。</translation>
    </message>
    <message>
        <source>The camera %1 on %2 lies outside the adapter&apos;s subnet %3: it answers discovery, but the host sends to it by its routes, not through this adapter. Give it an address in %3.</source>
        <translation>%2 上的相机 %1 位于适配器子网 %3 之外:它会应答发现,但主机按路由而非经此适配器向其发送。请给它分配 %3 内的地址。</translation>
    </message>
    <message>
        <source>%1 and %2 are both in %3: the host answers a camera through whichever adapter its route names, so discovery, control and resends can leave by the wrong one. Give each adapter a subnet of its own.</source>
        <translation>%1 和 %2 都在 %3 中:主机按路由指定的适配器应答相机,因此发现、控制和重发可能从错误的适配器发出。请为每个适配器分配独立的子网。</translation>
    </message>
</context>
<context>
    <name>HostFixer</name>
    <message>
        <source>Done (%1), and kept for the next start.</source>
        <translation>已完成 (%1),下次启动后仍保留。</translation>
    </message>
    <message>
        <source>Done (%1), until the next restart.</source>
        <translation>已完成 (%1),直到下次重启。</translation>
    </message>
    <message>
        <source>Not changed: %1</source>
        <translation>未更改: %1</translation>
    </message>
    <message>
        <source>This needs root. Run: %1</source>
        <translation>这需要 root 权限。请运行: %1</translation>
    </message>
</context>
<context>
    <name>LossPlace</name>
    <message>
        <source>&lt;b&gt;The link is over its capacity:&lt;/b&gt; press &lt;b&gt;Optimize&lt;/b&gt; on its adapter.</source>
        <translation>&lt;b&gt;链路超出其容量:&lt;/b&gt; 请按该适配器的 &lt;b&gt;Optimize&lt;/b&gt;。</translation>
    </message>
    <message>
        <source>&lt;b&gt;Packets were lost on the wire:&lt;/b&gt; check the cable and the switch.</source>
        <translation>&lt;b&gt;数据包在线路上丢失:&lt;/b&gt; 请检查电缆和交换机。</translation>
    </message>
    <message>
        <source>&lt;b&gt;The adapter&apos;s receive ring overflowed:&lt;/b&gt; raise it to its maximum (ethtool -G).</source>
        <translation>&lt;b&gt;适配器的接收环已溢出:&lt;/b&gt; 请将其调到最大值 (ethtool -G)。</translation>
    </message>
    <message>
        <source>&lt;b&gt;The stream socket&apos;s buffer overflowed:&lt;/b&gt; raise net.core.rmem_max, then start the analysis again.</source>
        <translation>&lt;b&gt;流套接字的缓冲区已溢出:&lt;/b&gt; 请调高 net.core.rmem_max,然后重新开始分析。</translation>
    </message>
    <message>
        <source>&lt;b&gt;No buffer was free for arriving frames:&lt;/b&gt; the application returns its buffers too late.</source>
        <translation>&lt;b&gt;到达的帧没有空闲缓冲区:&lt;/b&gt; 应用程序归还缓冲区太晚。</translation>
    </message>
</context>
<context>
    <name>Plugin::BandwidthManager::CBandwidthHistoryPlot</name>
    <message>
        <source>%1: 90 % of the link, %2 MB/s</source>
        <translation>%1: 链路的 90 %，%2 MB/s</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>时间 (s)</translation>
    </message>
    <message>
        <source>Payload (MB/s)</source>
        <translation>有效载荷 (MB/s)</translation>
    </message>
    <message>
        <source>%1: all cameras</source>
        <translation>%1: 所有相机</translation>
    </message>
</context>
<context>
    <name>Plugin::BandwidthManager::CBandwidthManagerPlugin</name>
    <message>
        <source>Bandwidth Manager</source>
        <translation>带宽管理器</translation>
    </message>
    <message>
        <source>Bandwidth Manager&lt;br&gt;The &lt;a href=&quot;#&quot;&gt;Bandwidth Manager&lt;/a&gt; helps you to optimize your network settings for optimum camera performance.</source>
        <translation>带宽管理器&lt;br&gt;&lt;a href=&quot;#&quot;&gt;带宽管理器&lt;/a&gt;可帮助您优化网络设置，使相机达到最佳性能。</translation>
    </message>
    <message>
        <source>&lt;p&gt;To use the Bandwidth Manager, you have to stop continuous image acquisition as well as any recordings on all cameras.&lt;p/&gt;Do you want to stop all cameras and start using the Bandwidth Manager?</source>
        <translation>&lt;p&gt;要使用带宽管理器，必须停止所有相机上的连续图像采集以及所有录制。&lt;p/&gt;是否要停止所有相机并开始使用带宽管理器？</translation>
    </message>
</context>
<context>
    <name>Plugin::BandwidthManager::CHostChecksDialog</name>
    <message>
        <source>Host Checks</source>
        <translation>主机检查</translation>
    </message>
    <message>
        <source>Check &amp;Again</source>
        <translation>再次检查(&amp;A)</translation>
    </message>
    <message>
        <source>Checking the host...</source>
        <translation>正在检查主机...</translation>
    </message>
    <message>
        <source>Fix</source>
        <translation>修复</translation>
    </message>
    <message>
        <source>Every check passed.</source>
        <translation>所有检查均已通过。</translation>
    </message>
    <message>
        <source>%1 check(s) found something to change.</source>
        <translation>%1 项检查发现需要更改之处。</translation>
    </message>
</context>
</TS>
