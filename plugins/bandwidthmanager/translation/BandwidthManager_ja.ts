<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>BandwidthCameraConfigureDialog</name>
    <message>
        <source>Features %1</source>
        <translation>機能 %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>設定</translation>
    </message>
</context>
<context>
    <name>BandwidthDialog</name>
    <message>
        <source>Bandwidth Manager</source>
        <translation>帯域幅マネージャー</translation>
    </message>
    <message>
        <source>&lt;p&gt;zenta has detected one or more GigE camera(s).The transport layer settings &lt;strong&gt;Inter-Packet Delay&lt;/strong&gt; and &lt;strong&gt;Packet Size&lt;/strong&gt; can have an impact on the performance of your GigE camera(s).&lt;/p&gt;&lt;p&gt;To automatically optimize these settings for all cameras in your environment, click the &lt;strong&gt;Optimize GigE Bandwidth&lt;/strong&gt; button in this dialog.This ensures optimum performance of your GigE cameras.&lt;/p&gt;</source>
        <translation>&lt;p&gt;zenta は 1 台以上の GigE カメラを検出しました。トランスポート層の設定 &lt;strong&gt;パケット間遅延&lt;/strong&gt; と &lt;strong&gt;パケットサイズ&lt;/strong&gt; は、GigE カメラのパフォーマンスに影響することがあります。&lt;/p&gt;&lt;p&gt;お使いの環境のすべてのカメラについてこれらの設定を自動的に最適化するには、このダイアログの &lt;strong&gt;GigE 帯域幅を最適化&lt;/strong&gt; ボタンをクリックしてください。これにより、GigE カメラが最適なパフォーマンスで動作します。&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Optimize GigE Bandwidth</source>
        <translation>GigE 帯域幅を最適化</translation>
    </message>
    <message>
        <source>Stop Bandwidth analysis.</source>
        <translation>帯域幅の解析を停止します。</translation>
    </message>
    <message>
        <source>Bandwidth analysis has been started.</source>
        <translation>帯域幅の解析を開始しました。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt;, &lt;b&gt;Inter-Packet Delay&lt;/b&gt; and &lt;b&gt;Frame Transmission Delay&lt;/b&gt; settings have been optimized.</source>
        <translation>&lt;b&gt;パケットサイズ&lt;/b&gt;、&lt;b&gt;パケット間遅延&lt;/b&gt;、&lt;b&gt;フレーム転送遅延&lt;/b&gt;の設定を最適化しました。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt; and &lt;b&gt;Inter-Packet Delay&lt;/b&gt; settings has been optimized.</source>
        <translation>&lt;b&gt;パケットサイズ&lt;/b&gt;と&lt;b&gt;パケット間遅延&lt;/b&gt;の設定を最適化しました。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt; and &lt;b&gt;Frame Transmission Delay&lt;/b&gt; settings has been optimized.</source>
        <translation>&lt;b&gt;パケットサイズ&lt;/b&gt;と&lt;b&gt;フレーム転送遅延&lt;/b&gt;の設定を最適化しました。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt; setting has been optimized</source>
        <translation>&lt;b&gt;パケットサイズ&lt;/b&gt;の設定を最適化しました。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Inter-Packet Delay&lt;/b&gt; and &lt;b&gt;Frame Transmission Delay&lt;/b&gt; settings has been optimized.</source>
        <translation>&lt;b&gt;パケット間遅延&lt;/b&gt;と&lt;b&gt;フレーム転送遅延&lt;/b&gt;の設定を最適化しました。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Inter-Packet Delay&lt;/b&gt; setting has been optimized</source>
        <translation>&lt;b&gt;パケット間遅延&lt;/b&gt;の設定を最適化しました。</translation>
    </message>
    <message>
        <source>&lt;br&gt;These cameras did not answer and could not be set: %1</source>
        <translation>&lt;br&gt;次のカメラは応答せず、設定できませんでした: %1</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Frame Transmission Delay&lt;/b&gt; setting has been optimized</source>
        <translation>&lt;b&gt;フレーム転送遅延&lt;/b&gt;の設定を最適化しました。</translation>
    </message>
    <message>
        <source>Settings have been checked and are ok. No changes have been made.</source>
        <translation>設定を確認しました。問題はありません。変更は行っていません。</translation>
    </message>
    <message>
        <source>&lt;br&gt;The &lt;b&gt;Packet Size&lt;/b&gt; setting has been increased to its maximum value. If you want to increase performance further, enable jumbo frames on your network adapter.</source>
        <translation>&lt;br&gt;&lt;b&gt;パケットサイズ&lt;/b&gt;の設定を最大値まで引き上げました。さらにパフォーマンスを向上させるには、ネットワークアダプターでジャンボフレームを有効にしてください。</translation>
    </message>
    <message>
        <source>&lt;br&gt;Currently, there are too many cameras connected to your network adapter. The Bandwidth Manager can&apos;t optimize the performance under these conditions. Try disconnecting one or more cameras to resolve this.</source>
        <translation>&lt;br&gt;現在、ネットワークアダプターに接続されているカメラが多すぎます。この状態では、帯域幅マネージャーはパフォーマンスを最適化できません。1 台以上のカメラを切断して解消してください。</translation>
    </message>
    <message>
        <source>&lt;br&gt;The &lt;b&gt;Packet Size&lt;/b&gt; setting could not be optimized. A default value of 1500 has been set.</source>
        <translation>&lt;br&gt;&lt;b&gt;パケットサイズ&lt;/b&gt;の設定を最適化できませんでした。デフォルト値の 1500 を設定しました。</translation>
    </message>
    <message>
        <source>All GigE cameras are being optimized.</source>
        <translation>すべての GigE カメラを最適化しています。</translation>
    </message>
    <message>
        <source>Selected GigE cameras are being optimized.</source>
        <translation>選択した GigE カメラを最適化しています。</translation>
    </message>
    <message>
        <source>No camera connected!&lt;br/&gt;Connect at least one USB camera to the computer. After the camera has been detected by the zenta Viewer, you are ready to use the Bandwidth Manager.</source>
        <translation>カメラが接続されていません！&lt;br/&gt;コンピューターに USB カメラを 1 台以上接続してください。zenta Viewer がカメラを検出すると、帯域幅マネージャーを使用できるようになります。</translation>
    </message>
    <message>
        <source>Analyzing bandwidth.&lt;br/&gt;You can limit the amount of bandwidth used by a camera using the controls in the &lt;b&gt;Bandwidth (MB/s)&lt;/b&gt; column.&lt;br/&gt;Click &lt;b&gt;Stop Analysis&lt;/b&gt; to stop the analysis.</source>
        <translation>帯域幅を解析しています。&lt;br/&gt;&lt;b&gt;帯域幅 (MB/s)&lt;/b&gt; 列のコントロールを使用して、カメラが使用する帯域幅を制限できます。&lt;br/&gt;解析を停止するには &lt;b&gt;解析を停止&lt;/b&gt; をクリックしてください。</translation>
    </message>
    <message>
        <source>&lt;br/&gt;&lt;br/&gt;&lt;b&gt;No camera is being measured.&lt;/b&gt; A camera lost during the analysis is measured again when it comes back.</source>
        <translation>&lt;br/&gt;&lt;br/&gt;&lt;b&gt;計測中のカメラはありません。&lt;/b&gt; 解析中に失われたカメラは、再接続されると再び計測されます。</translation>
    </message>
    <message>
        <source>B/s</source>
        <translation>B/s</translation>
    </message>
    <message>
        <source>The current value for &lt;b&gt;%1&lt;/b&gt; is: &lt;b&gt;%2&lt;/b&gt; (%3)&lt;br/&gt;Tip: If you want to preserve the current camera settings, save them to a user set.</source>
        <translation>&lt;b&gt;%1&lt;/b&gt; の現在の値: &lt;b&gt;%2&lt;/b&gt; (%3)&lt;br/&gt;ヒント: 現在のカメラ設定を保持するには、ユーザーセットに保存してください。</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Bandwidth (MB/s)&lt;/b&gt; value of GigE cameras shows the approximate bandwidth that is available for the individual network adapter. It is influenced by the &lt;b&gt;Inter-Packet Delay&lt;/b&gt; and &lt;b&gt;Packet Size&lt;/b&gt; settings in the &lt;b&gt;Transport Layer&lt;/b&gt; category.&lt;br/&gt;If you enable jumbo frames on your network adapter and increase the packet size of your camera you can increase the overall performance of your system.&lt;br/&gt;&lt;br/&gt;The &lt;b&gt;Bandwidth (MB/s)&lt;/b&gt; value of USB cameras corresponds to the &lt;b&gt;Device Link Throughput Limit&lt;/b&gt; value in the &lt;b&gt;Device Control&lt;/b&gt; category.&lt;br/&gt;&lt;br/&gt;Select the cameras whose bandwidth you want to analyze.&lt;br/&gt;Click &lt;b&gt;Start Analysis&lt;/b&gt; to start the analysis.&lt;br/&gt;&lt;br/&gt;Tip: If you want to preserve the current camera settings, save them to a user set.&lt;br/&gt;</source>
        <translation>GigE カメラの &lt;b&gt;帯域幅 (MB/s)&lt;/b&gt; の値は、個々のネットワークアダプターで利用できるおおよその帯域幅を示します。この値は &lt;b&gt;トランスポート層&lt;/b&gt; カテゴリーの &lt;b&gt;パケット間遅延&lt;/b&gt; と &lt;b&gt;パケットサイズ&lt;/b&gt; の設定に左右されます。&lt;br/&gt;ネットワークアダプターでジャンボフレームを有効にし、カメラのパケットサイズを大きくすると、システム全体のパフォーマンスを向上させることができます。&lt;br/&gt;&lt;br/&gt;USB カメラの &lt;b&gt;帯域幅 (MB/s)&lt;/b&gt; の値は、&lt;b&gt;デバイスコントロール&lt;/b&gt; カテゴリーの &lt;b&gt;デバイスリンクスループット制限&lt;/b&gt; の値に対応します。&lt;br/&gt;&lt;br/&gt;帯域幅を解析するカメラを選択してください。&lt;br/&gt;解析を開始するには &lt;b&gt;解析を開始&lt;/b&gt; をクリックしてください。&lt;br/&gt;&lt;br/&gt;ヒント: 現在のカメラ設定を保持するには、ユーザーセットに保存してください。&lt;br/&gt;</translation>
    </message>
    <message>
        <source>Software trigger enabled on %1!</source>
        <translation>%1 でソフトウェアトリガーが有効になっています！</translation>
    </message>
    <message>
        <source>Hardware trigger enabled on %1!</source>
        <translation>%1 でハードウェアトリガーが有効になっています！</translation>
    </message>
    <message>
        <source>Headers will be added by widgetcode</source>
        <translation>ヘッダーはウィジェットのコードで追加されます</translation>
    </message>
    <message>
        <source>&amp;Reset Statistics</source>
        <translation>統計をリセット(&amp;R)</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Hint Text&lt;br/&gt;Row 2&lt;br/&gt;Row 3&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;ヒントテキスト&lt;br/&gt;2 行目&lt;br/&gt;3 行目&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Stop analysis &amp;after</source>
        <translation>一定時間後に解析を停止(&amp;A)</translation>
    </message>
    <message>
        <source>Second(s)</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>Minute(s)</source>
        <translation>分</translation>
    </message>
    <message>
        <source>Hour(s)</source>
        <translation>時間</translation>
    </message>
    <message>
        <source>Day(s)</source>
        <translation>日</translation>
    </message>
    <message>
        <source>&amp;Start Analysis</source>
        <translation>解析を開始(&amp;S)</translation>
    </message>
    <message>
        <source>S&amp;top Analysis</source>
        <translation>解析を停止(&amp;T)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Export Analysis</source>
        <translation>解析のエクスポート</translation>
    </message>
    <message>
        <source>Analysis report (*.json)</source>
        <translation>解析レポート (*.json)</translation>
    </message>
    <message>
        <source>The analysis has been saved to %1 and %2.</source>
        <translation>解析を %1 と %2 に保存しました。</translation>
    </message>
    <message>
        <source>The analysis could not be saved: %1</source>
        <translation>解析を保存できませんでした: %1</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>エクスポート(&amp;X)...</translation>
    </message>
    <message>
        <source>Link use %1 % (highest %2 %)
Receive errors since the start: missed %3, FIFO %4, dropped %5</source>
        <translation>リンク使用率 %1 %(最大 %2 %)
開始以降の受信エラー: missed %3、FIFO %4、dropped %5</translation>
    </message>
    <message>
        <source>Since the start:
packets missing after resends: %1
packets resent: %2
resend requests: %3
frames without a free buffer: %4
packets dropped by the stream socket: %5</source>
        <translation>開始以降:
再送後も欠落したパケット: %1
再送されたパケット: %2
再送要求: %3
空きバッファがなかったフレーム: %4
ストリームソケットが破棄したパケット: %5</translation>
    </message>
    <message>
        <source>%1 host check(s) found something to change.</source>
        <translation>ホストチェックのうち %1 件が変更点を見つけました。</translation>
    </message>
    <message>
        <source>Check &amp;Host...</source>
        <translation>ホストのチェック(&amp;H)...</translation>
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
        <translation>カメラ</translation>
    </message>
    <message>
        <source>Bandwidth (MB/s)</source>
        <translation>帯域幅 (MB/s)</translation>
    </message>
    <message>
        <source>Payload Received (MB/s)</source>
        <translation>受信ペイロード (MB/s)</translation>
    </message>
    <message>
        <source>fps Sent</source>
        <translation>送信 fps</translation>
    </message>
    <message>
        <source>fps Received</source>
        <translation>受信 fps</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>画像数</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>エラー数</translation>
    </message>
    <message>
        <source>Optimize</source>
        <translation>最適化</translation>
    </message>
    <message>
        <source>Optimizes transport layer settings of cameras connected to this network adapter.</source>
        <translation>このネットワークアダプターに接続されたカメラのトランスポート層の設定を最適化します。</translation>
    </message>
    <message>
        <source>Error accessing camera!</source>
        <translation>カメラへのアクセス中にエラーが発生しました！</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>接続が切れました</translation>
    </message>
</context>
<context>
    <name>CameraConfigurationEditor</name>
    <message>
        <source>Invalid!</source>
        <translation>無効です！</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Configure Camera</source>
        <translation>カメラを設定</translation>
    </message>
</context>
<context>
    <name>ComboSlider</name>
    <message>
        <source>Range: %1..%2</source>
        <translation>範囲: %1..%2</translation>
    </message>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>範囲: %1..%2 (増分: %3)</translation>
    </message>
</context>
<context>
    <name>FlatTree</name>
    <message>
        <source>Internal Error</source>
        <translation>内部エラー</translation>
    </message>
    <message>
        <source>Network Interface</source>
        <translation>ネットワークインターフェイス</translation>
    </message>
    <message>
        <source>Could not start grab.</source>
        <translation>画像取得を開始できませんでした。</translation>
    </message>
</context>
<context>
    <name>HostChecks</name>
    <message>
        <source>net.core.rmem_max cannot be read.</source>
        <translation>net.core.rmem_max を読み取れません。</translation>
    </message>
    <message>
        <source>net.core.rmem_max is %1 KiB: enough for the streams.</source>
        <translation>net.core.rmem_max は %1 KiB で、ストリームに十分です。</translation>
    </message>
    <message>
        <source>net.core.rmem_max is %1 KiB, less than the %2 KiB a stream asks for: its packets are lost whenever the stream thread is late.</source>
        <translation>net.core.rmem_max は %1 KiB で、ストリームが要求する %2 KiB より小さいため、ストリームスレッドが遅れるたびにパケットが失われます。</translation>
    </message>
    <message>
        <source>%1 has no receive ring to set.</source>
        <translation>%1 には設定できる受信リングがありません。</translation>
    </message>
    <message>
        <source>%1: the receive ring is at its maximum, %2.</source>
        <translation>%1: 受信リングは最大値 %2 です。</translation>
    </message>
    <message>
        <source>%1: the receive ring holds %2 packets of up to %3: a burst of the cameras overflows it.</source>
        <translation>%1: 受信リングは最大 %3 のうち %2 パケットしか保持できず、カメラのバーストであふれます。</translation>
    </message>
    <message>
        <source>%1: MTU %2, as large as its cameras&apos; packets can use.</source>
        <translation>%1: MTU %2 で、カメラのパケットが使える大きさです。</translation>
    </message>
    <message>
        <source>%1: MTU %2, while its cameras could send packets of %3 bytes: jumbo frames (%4) carry a frame in fewer packets, with less load on the host.</source>
        <translation>%1: MTU %2 ですが、カメラは %3 バイトのパケットを送信できます。ジャンボフレーム (%4) ならより少ないパケットでフレームを運び、ホストの負荷が減ります。</translation>
    </message>
    <message>
        <source>%1: reverse-path filtering is not strict.</source>
        <translation>%1: リバースパスフィルタリングは厳格ではありません。</translation>
    </message>
    <message>
        <source>%1: strict reverse-path filtering drops the packets of a camera whose address the host would not route back through this adapter (discovery answers, streams from another subnet).</source>
        <translation>%1: 厳格なリバースパスフィルタリングは、ホストがこのアダプター経由で返送しないアドレスのカメラのパケット (検出応答、別サブネットからのストリーム) を破棄します。</translation>
    </message>
    <message>
        <source>%1: interrupt moderation suits %2 packets a second.</source>
        <translation>%1: 割り込みモデレーションは毎秒 %2 パケットに適しています。</translation>
    </message>
    <message>
        <source>%1 takes an interrupt for each of %2 packets a second: with moderation off, the host spends its time in interrupts.</source>
        <translation>%1 は毎秒 %2 パケットのそれぞれで割り込みを受けます。モデレーションがオフだと、ホストは割り込み処理に時間を費やします。</translation>
    </message>
    <message>
        <source>The camera %1 on %2 lies outside the adapter&apos;s subnet %3: it answers discovery, but the host sends to it by its routes, not through this adapter. Give it an address in %3.</source>
        <translation>%2 上のカメラ %1 はアダプターのサブネット %3 の外にあります。検出には応答しますが、ホストはこのアダプターではなくルートに従って送信します。%3 内のアドレスを割り当ててください。</translation>
    </message>
    <message>
        <source>%1 and %2 are both in %3: the host answers a camera through whichever adapter its route names, so discovery, control and resends can leave by the wrong one. Give each adapter a subnet of its own.</source>
        <translation>%1 と %2 はどちらも %3 にあります。ホストはルートが示すアダプター経由でカメラに応答するため、検出、制御、再送が誤ったアダプターから出る可能性があります。各アダプターに専用のサブネットを割り当ててください。</translation>
    </message>
</context>
<context>
    <name>HostFixer</name>
    <message>
        <source>Done (%1), and kept for the next start.</source>
        <translation>完了しました (%1)。次回の起動後も保持されます。</translation>
    </message>
    <message>
        <source>Done (%1), until the next restart.</source>
        <translation>完了しました (%1)。次回の再起動までです。</translation>
    </message>
    <message>
        <source>Not changed: %1</source>
        <translation>変更されていません: %1</translation>
    </message>
    <message>
        <source>This needs root. Run: %1</source>
        <translation>root 権限が必要です。実行してください: %1</translation>
    </message>
</context>
<context>
    <name>LossPlace</name>
    <message>
        <source>&lt;b&gt;The link is over its capacity:&lt;/b&gt; press &lt;b&gt;Optimize&lt;/b&gt; on its adapter.</source>
        <translation>&lt;b&gt;リンクの容量を超えています:&lt;/b&gt; そのアダプターの &lt;b&gt;Optimize&lt;/b&gt; を押してください。</translation>
    </message>
    <message>
        <source>&lt;b&gt;Packets were lost on the wire:&lt;/b&gt; check the cable and the switch.</source>
        <translation>&lt;b&gt;パケットが回線上で失われました:&lt;/b&gt; ケーブルとスイッチを確認してください。</translation>
    </message>
    <message>
        <source>&lt;b&gt;The adapter&apos;s receive ring overflowed:&lt;/b&gt; raise it to its maximum (ethtool -G).</source>
        <translation>&lt;b&gt;アダプターの受信リングがあふれました:&lt;/b&gt; 最大値まで上げてください (ethtool -G)。</translation>
    </message>
    <message>
        <source>&lt;b&gt;The stream socket&apos;s buffer overflowed:&lt;/b&gt; raise net.core.rmem_max, then start the analysis again.</source>
        <translation>&lt;b&gt;ストリームソケットのバッファがあふれました:&lt;/b&gt; net.core.rmem_max を上げてから、解析を再開してください。</translation>
    </message>
    <message>
        <source>&lt;b&gt;No buffer was free for arriving frames:&lt;/b&gt; the application returns its buffers too late.</source>
        <translation>&lt;b&gt;到着したフレームに空きバッファがありませんでした:&lt;/b&gt; アプリケーションがバッファを返すのが遅すぎます。</translation>
    </message>
</context>
<context>
    <name>Plugin::BandwidthManager::CBandwidthHistoryPlot</name>
    <message>
        <source>%1: 90 % of the link, %2 MB/s</source>
        <translation>%1: リンクの 90 %、%2 MB/s</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>時間 (s)</translation>
    </message>
    <message>
        <source>Payload (MB/s)</source>
        <translation>ペイロード (MB/s)</translation>
    </message>
    <message>
        <source>%1: all cameras</source>
        <translation>%1: 全カメラ</translation>
    </message>
</context>
<context>
    <name>Plugin::BandwidthManager::CBandwidthManagerPlugin</name>
    <message>
        <source>Bandwidth Manager</source>
        <translation>帯域幅マネージャー</translation>
    </message>
    <message>
        <source>Bandwidth Manager&lt;br&gt;The &lt;a href=&quot;#&quot;&gt;Bandwidth Manager&lt;/a&gt; helps you to optimize your network settings for optimum camera performance.</source>
        <translation>帯域幅マネージャー&lt;br&gt;&lt;a href=&quot;#&quot;&gt;帯域幅マネージャー&lt;/a&gt;は、カメラが最適なパフォーマンスを発揮できるようにネットワーク設定を最適化するのに役立ちます。</translation>
    </message>
    <message>
        <source>&lt;p&gt;To use the Bandwidth Manager, you have to stop continuous image acquisition as well as any recordings on all cameras.&lt;p/&gt;Do you want to stop all cameras and start using the Bandwidth Manager?</source>
        <translation>&lt;p&gt;帯域幅マネージャーを使用するには、すべてのカメラで連続画像取得と録画をすべて停止する必要があります。&lt;p/&gt;すべてのカメラを停止して、帯域幅マネージャーの使用を開始しますか？</translation>
    </message>
</context>
<context>
    <name>Plugin::BandwidthManager::CHostChecksDialog</name>
    <message>
        <source>Host Checks</source>
        <translation>ホストのチェック</translation>
    </message>
    <message>
        <source>Check &amp;Again</source>
        <translation>再チェック(&amp;A)</translation>
    </message>
    <message>
        <source>Checking the host...</source>
        <translation>ホストをチェックしています...</translation>
    </message>
    <message>
        <source>Fix</source>
        <translation>修正</translation>
    </message>
    <message>
        <source>Every check passed.</source>
        <translation>すべてのチェックに合格しました。</translation>
    </message>
    <message>
        <source>%1 check(s) found something to change.</source>
        <translation>%1 件のチェックが変更点を見つけました。</translation>
    </message>
</context>
</TS>
